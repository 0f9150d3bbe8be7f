#include "player/frm_player.h"

#include "language/text_table.h"
#include "player/player_layout.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"
#include "ui/skin_picture.h"
#include "ui/skin_progress_track.h"
#include "ui/window_shell.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace Orvane {

namespace Layout = Player_Layout;

namespace {

// The name assistive technologies give the progress track.
constexpr int16_t Text_Position = 105;

Skin_Label* New_Label(QWidget* parent, const char* name, const QRect& place, const QString& text,
                      const QFont& font, const QColor& color)
{
    auto* label = new Skin_Label(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(place);
    label->setFont(font);
    label->Set_Colors(color);
    return label;
}

Skin_Picture* New_Picture(QWidget* parent, const char* name, const QString& picture,
                          const QRect& place)
{
    auto* image = new Skin_Picture(picture, parent);
    image->setObjectName(QString::fromLatin1(name));
    image->setGeometry(place);
    return image;
}

} // namespace

Frm_Player::Frm_Player(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("Frm_Player"));
    setWindowTitle(QStringLiteral("Orvane"));
    setFocusPolicy(Qt::StrongFocus);
    resize(Layout::Window_Width, Layout::Design_Height);

    Build_Display();
    Build_Buttons();
    Build_Popup_Menu();
    Shape_Window(this, Layout::Window_Corner);
}

Frm_Player::~Frm_Player() = default;

void Frm_Player::Build_Display()
{
    using namespace Skin_Palette;
    lbl_affichage_temps_ = New_Label(this, "Lbl_Affichage_Temps", Layout::Time_Label,
                                     QStringLiteral("00:00:00"), Time_Font(22), Accent);
    lbl_affichage_temps_->Set_Clickable(true);
    lbl_affichage_temps_->Set_Colors(Accent, Display_Text);
    connect(lbl_affichage_temps_, &Skin_Label::Clicked, this, &Frm_Player::Time_Label_Clicked);

    lbl_indic_type_temps_ = New_Label(this, "Lbl_Indic_Type_Temps", Layout::Time_Mode_Label,
                                      QStringLiteral("Temps écoulé"), Label_Font(9, true, true),
                                      Display_Dim);
    lbl_affichage_rang_ = New_Label(this, "Lbl_Affichage_Rang", Layout::Track_Number_Label,
                                    QString(), Time_Font(11), Display_Dim);
    lbl_affichage_rang_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lbl_affichage_fichier_ = New_Label(this, "Lbl_Affichage_Fichier", Layout::Title_Label,
                                       QStringLiteral("Aucun fichier chargé"),
                                       Label_Font(12, true), Display_Text);

    lbl_quitter_ = New_Label(this, "Lbl_Quitter", Layout::Quit_Label, QStringLiteral("Fermer"),
                             Label_Font(9, true), Panel_Dim);
    // The key's picture is on the bar; the caption sits under its symbol.
    lbl_quitter_->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    lbl_quitter_->setContentsMargins(3, 0, 3, 5);
    lbl_quitter_->Set_Clickable(true);
    lbl_quitter_->Set_Button_Role(true);
    lbl_quitter_->Set_Colors(Panel_Dim, Panel_Hover);
    connect(lbl_quitter_, &Skin_Label::Clicked, this, &Frm_Player::Quit_Clicked);

    label1_ = New_Label(this, "Label1", Layout::Caption_Label, QString(),
                        Label_Font(9, true, true), Panel_Dim);
    lbl_affichage_ml_ = New_Label(this, "Lbl_Affichage_ML", Layout::Audio_Label, QString(),
                                  Label_Font(10), Panel_Text);
    lbl_affichage_sub_ = New_Label(this, "Lbl_Affichage_Sub", Layout::Subtitle_Label, QString(),
                                   Label_Font(10), Panel_Text);

    lbl_avancement_ = new Skin_Progress_Track(QStringLiteral("progress_track"),
                                              QStringLiteral("progress_fill"), this);
    lbl_avancement_->setObjectName(QStringLiteral("Lbl_Avancement"));
    lbl_avancement_->setGeometry(Layout::Progress_Track);
    connect(lbl_avancement_, &Skin_Progress_Track::Mouse_Down, this,
            &Frm_Player::Progress_Mouse_Down);
    connect(lbl_avancement_, &Skin_Progress_Track::Mouse_Move, this,
            &Frm_Player::Progress_Mouse_Move);
    connect(lbl_avancement_, &Skin_Progress_Track::Mouse_Up, this,
            &Frm_Player::Progress_Mouse_Up);
    img_avancement_ = New_Picture(this, "Img_Avancement", QStringLiteral("progress_cursor"),
                                  Layout::Progress_Cursor_Place(0));
    // Presses on the knob seek like presses on the track under it.
    img_avancement_->setAttribute(Qt::WA_TransparentForMouseEvents);

    for (int level = 0; level < Layout::Volume_Levels; ++level) {
        img_vol_[std::size_t(level)] =
            New_Picture(this, "Img_Vol", QStringLiteral("volume_%1").arg(level),
                        Layout::Volume_Gauge);
    }
    // The first gauge picture speaks for the gauge.
    img_vol_[0]->Set_Level(0, Layout::Volume_Levels - 1);

    img_temoin_ml_ = New_Picture(this, "Img_Temoin_ML", QStringLiteral("lamp_audio"),
                                 Layout::Audio_Lamp);
    img_temoin_st_[0] = New_Picture(this, "Img_Temoin_ST", QStringLiteral("lamp_subtitles_off"),
                                    Layout::Subtitle_Lamp);
    img_temoin_st_[1] = New_Picture(this, "Img_Temoin_ST", QStringLiteral("lamp_subtitles_on"),
                                    Layout::Subtitle_Lamp);
    img_temoin_ml_->hide();
    img_temoin_st_[0]->hide();
    img_temoin_st_[1]->hide();
}

void Frm_Player::Build_Buttons()
{
    for (int index = 0; index < Layout::Button_Count; ++index) {
        auto* button = new Picture_Button(Layout::Button_Picture(index), this);
        button->setObjectName(QStringLiteral("Img_Btn"));
        button->Place(Layout::Button_Place(index));
        connect(button, &Picture_Button::Mouse_Down, this, [this, index](Qt::MouseButton pressed) {
            if (pressed == Qt::LeftButton)
                emit Button_Mouse_Down(index);
        });
        connect(button, &Picture_Button::Clicked, this, [this, index](Qt::MouseButton pressed) {
            if (pressed == Qt::LeftButton)
                emit Button_Clicked(index);
        });
        img_btn_[std::size_t(index)] = button;
    }
}

void Frm_Player::Build_Popup_Menu()
{
    mnu_popup_ = new QMenu(QStringLiteral("Popup"), this);
    mnu_popup_->setObjectName(QStringLiteral("Mnu_Popup"));
    // The menu wears the bar's graphite and accent rather than the desktop's.
    mnu_popup_->setStyleSheet(QStringLiteral(
        "QMenu { background: #2b2f35; color: #c3cbd5; border: 1px solid #07080a;"
        " padding: 4px 0; font-family: 'DejaVu Sans'; font-size: 12px; }"
        "QMenu::item { padding: 5px 22px 5px 26px; }"
        "QMenu::item:selected { background: #1b5f7a; color: #f2f6fa; }"
        "QMenu::indicator { width: 12px; height: 12px; left: 8px; }"
        "QMenu::indicator:checked { image: url(:/skin/option_mark.svg); }"
        "QMenu::separator { height: 1px; background: #15171b; margin: 4px 8px; }"));
    mnu_info_ = mnu_popup_->addSeparator();
    mnu_info_->setObjectName(QStringLiteral("Mnu_Info"));
    mnu_separation_ = mnu_popup_->addSeparator();
    mnu_separation_->setObjectName(QStringLiteral("Mnu_Separation"));
    mnu_info2_ = mnu_popup_->addSeparator();
    mnu_info2_->setObjectName(QStringLiteral("Mnu_Info2"));

    Resize_Entries(mnu_num_stream_, 1, mnu_separation_);
    Resize_Entries(mnu_audio_secondaire_, 1, mnu_info2_);
    mnu_num_stream_.front()->setText(QStringLiteral("Stream audio 1"));
    mnu_audio_secondaire_.front()->setText(QStringLiteral("Audio associé 1"));
    // Nothing is offered before a track builds the menus: a track with only
    // associated files must not show a stream entry or the separation.
    mnu_num_stream_.front()->setVisible(false);
    mnu_audio_secondaire_.front()->setVisible(false);
    mnu_separation_->setVisible(false);
}

void Frm_Player::Resize_Entries(std::vector<QAction*>& entries, int count, QAction* before)
{
    const std::size_t wanted = std::size_t(std::max(count, 1));
    while (entries.size() > wanted) {
        QAction* last = entries.back();
        entries.pop_back();
        mnu_popup_->removeAction(last);
        delete last;
    }
    while (entries.size() < wanted) {
        auto* entry = new QAction(entries.empty() ? QString() : entries.front()->text(), mnu_popup_);
        entry->setCheckable(true);
        connect(entry, &QAction::triggered, this,
                [this, entry](bool checked) { Entry_Triggered(entry, checked); });
        mnu_popup_->insertAction(before, entry);
        entries.push_back(entry);
    }
}

void Frm_Player::Entry_Triggered(QAction* entry, bool checked_by_menu)
{
    // The menu would flip the check by itself; the choice logic decides the
    // checks (choosing the entry already checked changes nothing).
    entry->setChecked(!checked_by_menu);
    const auto stream = std::find(mnu_num_stream_.begin(), mnu_num_stream_.end(), entry);
    if (stream != mnu_num_stream_.end()) {
        emit Stream_Entry_Chosen(int(stream - mnu_num_stream_.begin()) + 1);
        return;
    }
    const auto associated =
        std::find(mnu_audio_secondaire_.begin(), mnu_audio_secondaire_.end(), entry);
    if (associated != mnu_audio_secondaire_.end())
        emit Associated_Entry_Chosen(int(associated - mnu_audio_secondaire_.begin()) + 1);
}

QAction* Frm_Player::Mnu_Num_Stream(int k) const
{
    return k >= 1 && k <= Stream_Entry_Count() ? mnu_num_stream_[std::size_t(k - 1)] : nullptr;
}

QAction* Frm_Player::Mnu_Audio_Secondaire(int j) const
{
    return j >= 1 && j <= Associated_Entry_Count() ? mnu_audio_secondaire_[std::size_t(j - 1)]
                                                   : nullptr;
}

void Frm_Player::Apply_Texts(const Text_Table& texts, bool media_open)
{
    for (int index = 0; index < Layout::Button_Count; ++index)
        img_btn_[std::size_t(index)]->setToolTip(texts.Get_Text(int16_t(index + 1)));
    lbl_indic_type_temps_->setText(texts.Get_Text(101));
    if (!media_open)
        lbl_affichage_fichier_->setText(texts.Get_Text(103));
    label1_->setText(texts.Get_Text(104));
    img_vol_[0]->setAccessibleName(texts.Get_Text(104));
    lbl_avancement_->setAccessibleName(texts.Get_Text(Text_Position));
}

void Frm_Player::Set_Button_Top(int index, int top)
{
    img_btn_.at(std::size_t(index))->Set_Top(top);
}

int Frm_Player::Button_Top(int index) const
{
    return img_btn_.at(std::size_t(index))->Top();
}

void Frm_Player::Show_Volume_Level(int level)
{
    if (level < 0 || level >= Layout::Volume_Levels)
        return;
    img_vol_[std::size_t(level)]->raise();
    img_vol_[0]->Set_Level(level, Layout::Volume_Levels - 1);
}

int Frm_Player::Front_Volume_Level() const
{
    // Raising moves a child to the end of its parent's list: the last gauge
    // picture met is the one in front.
    int front = -1;
    for (const QObject* child : children()) {
        const auto found = std::find(img_vol_.begin(), img_vol_.end(), child);
        if (found != img_vol_.end())
            front = int(found - img_vol_.begin());
    }
    return front;
}

void Frm_Player::Set_Time_Text(const QString& text)
{
    lbl_affichage_temps_->setText(text);
}

QString Frm_Player::Time_Text() const
{
    return lbl_affichage_temps_->text();
}

void Frm_Player::Set_Time_Mode_Caption(const QString& text)
{
    lbl_indic_type_temps_->setText(text);
}

void Frm_Player::Set_Cursor_Left(int pixels)
{
    cursor_left_ = pixels;
    Place_Cursor();
}

void Frm_Player::Place_Cursor()
{
    // The knob never leaves the track, whatever position it is given.
    const int shown = std::clamp(cursor_left_, 0, Progress_Track_Width());
    img_avancement_->move(Layout::Progress_Cursor_Place(shown).topLeft());
    lbl_avancement_->Set_Fill(shown);
}

int Frm_Player::Progress_Track_Width() const
{
    return lbl_avancement_->width();
}

void Frm_Player::Set_Track_Number_Text(const QString& text)
{
    lbl_affichage_rang_->setText(text);
}

void Frm_Player::Set_Title_Text(const QString& text)
{
    lbl_affichage_fichier_->setText(text);
}

QString Frm_Player::Title_Text() const
{
    return lbl_affichage_fichier_->text();
}

void Frm_Player::Set_Audio_Text(const QString& text)
{
    lbl_affichage_ml_->setText(text);
}

void Frm_Player::Set_Subtitle_Text(const QString& text)
{
    lbl_affichage_sub_->setText(text);
}

void Frm_Player::Set_Audio_Lamp_Visible(bool visible)
{
    img_temoin_ml_->setVisible(visible);
}

void Frm_Player::Set_Subtitle_Lamp_Visible(int index, bool visible)
{
    if (index == 0 || index == 1)
        img_temoin_st_[std::size_t(index)]->setVisible(visible);
}

void Frm_Player::Set_Stream_Entry_Count(int count)
{
    Resize_Entries(mnu_num_stream_, count, mnu_separation_);
}

void Frm_Player::Set_Stream_Entry(int k, const QString& caption, bool visible)
{
    if (QAction* entry = Mnu_Num_Stream(k)) {
        entry->setText(caption);
        entry->setVisible(visible);
    }
}

void Frm_Player::Set_Stream_Checked(int k, bool checked)
{
    if (QAction* entry = Mnu_Num_Stream(k))
        entry->setChecked(checked);
}

void Frm_Player::Set_Associated_Entry_Count(int count)
{
    Resize_Entries(mnu_audio_secondaire_, count, mnu_info2_);
}

void Frm_Player::Set_Associated_Entry(int j, const QString& caption, bool visible)
{
    if (QAction* entry = Mnu_Audio_Secondaire(j)) {
        entry->setText(caption);
        entry->setVisible(visible);
    }
}

void Frm_Player::Set_Associated_Checked(int j, bool checked)
{
    if (QAction* entry = Mnu_Audio_Secondaire(j))
        entry->setChecked(checked);
}

void Frm_Player::Set_Separation_Visible(bool visible)
{
    mnu_separation_->setVisible(visible);
}

void Frm_Player::Popup_Audio_Menu()
{
    mnu_popup_->popup(QCursor::pos());
}

void Frm_Player::Bring_To_Front()
{
    if (!isVisible())
        show();
    raise();
    activateWindow();
}

void Frm_Player::Set_Window_Height(int pixels)
{
    resize(width(), pixels);
    Shape_Window(this, Layout::Window_Corner);
}

void Frm_Player::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatioF();
    if (background_.isNull() || !qFuzzyCompare(background_.devicePixelRatio(), ratio))
        background_ = Render_Skin_Picture(QStringLiteral("player_background"),
                                          QSize(Layout::Window_Width, Layout::Unrolled_Height),
                                          ratio);
    QPainter painter(this);
    painter.drawPixmap(0, 0, background_);
}

void Frm_Player::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Drag_Window(this);
}

void Frm_Player::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit Window_Double_Clicked();
}

void Frm_Player::keyPressEvent(QKeyEvent* event)
{
    emit Key_Pressed(Key_Press_Code(*event));
}

} // namespace Orvane
