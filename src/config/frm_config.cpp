#include "config/frm_config.h"

#include "config/config_language_list.h"
#include "config/settings.h"
#include "config/subtitle_color.h"
#include "language/text_table.h"
#include "ui/option_pair.h"
#include "ui/picture_button.h"
#include "ui/skin_controls.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"
#include "ui/skin_picture.h"
#include "ui/windows_rgb.h"
#include "ui/window_shell.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

namespace Orvane {

namespace {

constexpr QSize Window_Size(520, 346);
constexpr int Left_Column = 16;
constexpr int Right_Column = 272;
constexpr int Column_Width = 232;
constexpr int Value_Left = 76;  // where a value stands after its caption
constexpr QRect Sample_Area(16, 138, 230, 46);
constexpr QRect Swatch_Area(Value_Left, 194, 40, 16);

enum Caption_Index {
    Title, Language_Pane, Language_Help, Subtitle_Pane, Font_Caption, Size_Caption, Style_Caption,
    Color_Caption, Transparent_Caption, Font_Button, Color_Help, Transparent_Help, Drive_Help,
    Ok_Caption, Cancel_Caption, Playlist_Pane, Repeat_Caption, Drive_Pane, CD1_Chooser, CD2_Chooser,
    Settings_Pane, Save_Caption, Close_Label,
};

Skin_Label* Heading(QWidget* parent, const QString& name, QPoint at)
{
    Skin_Label* label = Make_Label(parent, name, QRect(at, QSize(Column_Width, 16)), 11, Skin_Palette::Accent, true);
    label->setFont(Skin_Palette::Label_Font(11, true, true));
    return label;
}

Skin_Label* Text(QWidget* parent, const QString& name, const QRect& place)
{
    return Make_Label(parent, name, place, 12, Skin_Palette::Panel_Text);
}

Skin_Label* Help(QWidget* parent, const QString& name, const QRect& place)
{
    Skin_Label* label = Make_Label(parent, name, place, 10, Skin_Palette::Panel_Dim);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

Skin_Label* Clickable(Skin_Label* label, const QColor& color = Skin_Palette::Panel_Text)
{
    label->Set_Clickable(true);
    label->Set_Button_Role(true);
    label->Set_Colors(color, Skin_Palette::Panel_Hover);
    label->setCursor(Qt::PointingHandCursor);
    return label;
}

} // namespace

const std::array<int16_t, 23>& Frm_Config::Caption_Numbers()
{
    static const std::array<int16_t, 23> numbers = {401, 402, 403, 501, 502, 503, 511, 509, 510, 806, 801, 802,
                                                    803, 804, 805, 601, 603, 604, 605, 610, 606, 608, 609};
    return numbers;
}

Frm_Config::Frm_Config(Settings& settings, const Text_Table& texts, CdlgEx& dialog, Config_Confirm_Actions actions,
                       std::function<bool()> subtitles_shown, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), settings_(settings), texts_(texts), dialog_(dialog),
      actions_(std::move(actions)), subtitles_shown_(std::move(subtitles_shown))
{
    setObjectName(QStringLiteral("Frm_Config"));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_DeleteOnClose, false);
    resize(Window_Size);

    captions_[Title] = Make_Label(this, QStringLiteral("Lbl_Titre"), QRect(36, 8, 300, 18), 13, Skin_Palette::Panel_Text, true);
    captions_[Close_Label] = lbl_quiter_ =
        Clickable(Make_Label(this, QStringLiteral("Lbl_Quiter"), QRect(394, 8, 112, 18), 12, Skin_Palette::Panel_Text));
    lbl_quiter_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(lbl_quiter_, &Skin_Label::Clicked, this, [this] { Unload(); });

    Build_Subtitle_Pane();
    Build_Other_Panes();
    Build_Buttons();

    // Load: texts and shell first, then the controls from the settings.
    Apply_Texts(texts);
    Shape_Window(this, Corner);
    form_ = Load_Config_Form(settings_);
    languages_->Mark(form_.Chosen_Language);
    Show_Form();
}

Frm_Config::~Frm_Config() = default;

void Frm_Config::Build_Subtitle_Pane()
{
    captions_[Subtitle_Pane] = Heading(this, QStringLiteral("Lbl_Sous_Titrage"), {Left_Column, 42});
    captions_[Font_Caption] = Text(this, QStringLiteral("Lbl_Police"), QRect(Left_Column, 62, 58, 16));
    captions_[Size_Caption] = Text(this, QStringLiteral("Lbl_Taille_Titre"), QRect(Left_Column, 80, 58, 16));
    captions_[Style_Caption] = Text(this, QStringLiteral("Lbl_Style_Titre"), QRect(Left_Column, 98, 58, 16));
    lbl_nom_police_ = Make_Label(this, QStringLiteral("Lbl_Nom_Police"), QRect(Value_Left, 62, 170, 16), 12,
                                 Skin_Palette::Display_Text, true);
    lbl_taille_ = Make_Label(this, QStringLiteral("Lbl_Taille"), QRect(Value_Left, 80, 170, 16), 12,
                             Skin_Palette::Display_Text, true);
    lbl_style_ = Make_Label(this, QStringLiteral("Lbl_Style"), QRect(Value_Left, 98, 170, 16), 12,
                            Skin_Palette::Display_Text, true);
    captions_[Font_Button] = lbl_st_ =
        Clickable(Make_Label(this, QStringLiteral("Lbl_ST"), QRect(Left_Column, 116, Column_Width, 16), 12,
                             Skin_Palette::Accent, true),
                  Skin_Palette::Accent);
    connect(lbl_st_, &Skin_Label::Clicked, this, [this] {
        Choose_Font(dialog_, this, settings_, form_);
        Show_Form();
    });

    lbl_ex_police_ = new QLabel(this);
    lbl_ex_police_->setObjectName(QStringLiteral("Lbl_Ex_Police"));
    lbl_ex_police_->setGeometry(Sample_Area);
    lbl_ex_police_->setAlignment(Qt::AlignCenter);
    lbl_ex_police_->setAttribute(Qt::WA_TransparentForMouseEvents);

    captions_[Color_Caption] = Text(this, QStringLiteral("Lbl_Couleur"), QRect(Left_Column, 194, 58, 16));
    lbl_couleur_st_ = Clickable(Make_Label(this, QStringLiteral("Lbl_Couleur_ST"), Swatch_Area, 12,
                                           Skin_Palette::Panel_Text));
    connect(lbl_couleur_st_, &Skin_Label::Clicked, this, [this] {
        Choose_Color(dialog_, this, form_);
        Show_Form();
    });
    captions_[Color_Help] = Help(this, QStringLiteral("Lbl_Aide_ST"), QRect(Left_Column, 214, Column_Width, 14));

    option_sub_ = Add_Option(QStringLiteral("Sub"), {Left_Column, 235}, Transparent_Caption, &Config_Form::Transparent);
    captions_[Transparent_Help] = Help(this, QStringLiteral("Lbl_Aide_ST2"), QRect(Left_Column, 254, Column_Width, 30));
}

void Frm_Config::Build_Other_Panes()
{
    captions_[Language_Pane] = Heading(this, QStringLiteral("Lbl_Langue"), {Right_Column, 42});
    captions_[Language_Help] = Help(this, QStringLiteral("Lbl_Aide_Langue"), QRect(Right_Column, 58, Column_Width, 14));
    auto* cache = new QWidget(this);
    cache->setObjectName(QStringLiteral("Pic_Cache"));
    cache->setGeometry(Right_Column - 1, 77, Column_Width, 60);
    auto* scroll = Make_Label(this, QStringLiteral("Lbl_Scroll"), QRect(Right_Column + Column_Width - 14, 42, 14, 16), 11, Skin_Palette::Accent);
    scroll->setText(QStringLiteral("▼"));
    languages_ = new Config_Language_List(cache, scroll, texts_.Language_Names());
    connect(languages_, &Config_Language_List::Chosen, this,
            [this](const QString& language) { Choose_Language(form_, language); });

    captions_[Playlist_Pane] = Heading(this, QStringLiteral("Lbl_Playlist"), {Right_Column, 146});
    option_playlist_ = Add_Option(QStringLiteral("Playlist1"), {Right_Column, 165}, Repeat_Caption, &Config_Form::Repeat);

    captions_[Drive_Pane] = Heading(this, QStringLiteral("Lbl_Lecteurs"), {Right_Column, 188});
    captions_[CD1_Chooser] = lbl_cd1_ =
        Clickable(Text(this, QStringLiteral("Lbl_CD1"), QRect(Right_Column, 206, 50, 16)), Skin_Palette::Accent);
    captions_[CD2_Chooser] = lbl_cd2_ =
        Clickable(Text(this, QStringLiteral("Lbl_CD2"), QRect(Right_Column, 224, 50, 16)), Skin_Palette::Accent);
    for (int k = 0; k < 2; ++k)
        lbl_cd_value_[std::size_t(k)] = Make_Label(this, QStringLiteral("Lbl_CD_%1").arg(k + 1),
                                                   QRect(Right_Column + 52, 206 + 18 * k, Column_Width - 52, 16), 12,
                                                   Skin_Palette::Display_Text, true);
    // CD 1 answers a click, CD 2 the press of the left button.
    connect(lbl_cd1_, &Skin_Label::Clicked, this, [this] {
        Choose_Drive(dialog_, this, texts_, 1, form_);
        Show_Drives();
    });
    connect(lbl_cd2_, &Skin_Label::Left_Pressed, this, [this] {
        Choose_Drive(dialog_, this, texts_, 2, form_);
        Show_Drives();
    });
    captions_[Drive_Help] = Help(this, QStringLiteral("Lbl_aide_CD2"), QRect(Right_Column, 243, Column_Width, 18));

    captions_[Settings_Pane] = Heading(this, QStringLiteral("Lbl_Parametres"), {Right_Column, 262});
    option_param_ = Add_Option(QStringLiteral("Param1"), {Right_Column, 281}, Save_Caption, &Config_Form::Save);
}

Option_Pair* Frm_Config::Add_Option(const QString& name, QPoint at, int caption, bool Config_Form::*field)
{
    auto* option = new Option_Pair(QStringLiteral("Img_Option_") + name, this);
    option->move(at + QPoint(0, 1));
    // The caption beside the box toggles it too, as a check box's does.
    Skin_Label* label = Clickable(
        Text(this, QStringLiteral("Lbl_Option_") + name, QRect(at + QPoint(20, 0), QSize(Column_Width - 20, 16))));
    label->Set_Button_Role(false);  // the check box carries the caption as its name
    captions_[std::size_t(caption)] = label;
    connect(label, &Skin_Label::Clicked, option, &Option_Pair::Toggle);
    connect(option, &Option_Pair::Toggled, this, [this, field](bool on) { form_.*field = on; });
    return option;
}

void Frm_Config::Build_Buttons()
{
    for (int index = 0; index < 2; ++index) {
        const int left = Window_Size.width() - 16 - 90 - 98 * (1 - index);
        auto* button = new Picture_Button(QStringLiteral("button_caption"), this);
        button->setObjectName(QStringLiteral("Img_Btn_%1").arg(index));
        button->Place(QRect(left, Button_Top, 90, 28));
        button->setCursor(Qt::PointingHandCursor);
        Skin_Label* caption = Make_Label(this, QStringLiteral("Lbl_OK_%1").arg(index),
                                         QRect(left, Caption_Top, 90, 20), 12, Skin_Palette::Panel_Text, true);
        caption->setAlignment(Qt::AlignCenter);
        // The caption lies on the button: the button takes the mouse for both.
        caption->setAttribute(Qt::WA_TransparentForMouseEvents);
        connect(button, &Picture_Button::Mouse_Down, this, [button, caption] {
            button->Set_Top(Button_Top + 1);
            caption->move(caption->x(), Caption_Top + 1);
        });
        connect(button, &Picture_Button::Mouse_Up, this, [this, button, caption, index] {
            button->Set_Top(Button_Top);
            caption->move(caption->x(), Caption_Top);
            Button_Released(index);
        });
        img_btn_[std::size_t(index)] = button;
        lbl_ok_[std::size_t(index)] = caption;
    }
    captions_[Ok_Caption] = lbl_ok_[0];
    captions_[Cancel_Caption] = lbl_ok_[1];
}

void Frm_Config::Apply_Texts(const Text_Table& texts)
{
    for (std::size_t k = 0; k < Caption_Numbers().size(); ++k) {
        captions_[k]->setText(texts.Get_Text(Caption_Numbers()[k]));
        captions_[k]->setAccessibleName(captions_[k]->text());
    }
    setWindowTitle(texts.Get_Text(Caption_Numbers()[Title]));
    setAccessibleName(windowTitle());
    img_btn_[0]->setAccessibleName(lbl_ok_[0]->text());
    img_btn_[1]->setAccessibleName(lbl_ok_[1]->text());
    option_sub_->setAccessibleName(captions_[Transparent_Caption]->text());
    option_playlist_->setAccessibleName(captions_[Repeat_Caption]->text());
    option_param_->setAccessibleName(captions_[Save_Caption]->text());
    lbl_st_->setToolTip(texts.Get_Text(Config_Window_Text::Font_Hint));
    lbl_couleur_st_->setToolTip(texts.Get_Text(Config_Window_Text::Color_Hint));
    lbl_couleur_st_->setAccessibleName(captions_[Color_Caption]->text());
    lbl_ex_police_->setText(texts.Get_Text(Config_Window_Text::Sample));
    if (languages_)
        Show_Form();
}

Skin_Label* Frm_Config::Caption(int16_t number) const
{
    for (std::size_t k = 0; k < Caption_Numbers().size(); ++k)
        if (Caption_Numbers()[k] == number)
            return captions_[k];
    return nullptr;
}

void Frm_Config::Show_Form()
{
    lbl_nom_police_->setText(form_.Font_Name);
    lbl_taille_->setText(QString::number(form_.Font_Size));
    lbl_style_->setText(texts_.Get_Text(Style_Text_Number(form_.Bold, form_.Italic)));
    update(Swatch_Area.adjusted(-1, -1, 1, 1));
    option_sub_->Set_On(form_.Transparent);
    option_playlist_->Set_On(form_.Repeat);
    option_param_->Set_On(form_.Save);
    Show_Font_Sample();
    Show_Drives();
}

void Frm_Config::Show_Font_Sample()
{
    // Drawn at the chosen size, or smaller where that size would not fit.
    int size = std::max(form_.Font_Size, 1);
    QFont font = Subtitle_Font(form_.Font_Name, size, form_.Bold, form_.Italic);
    while (size > 6 && (QFontMetrics(font).horizontalAdvance(lbl_ex_police_->text()) > Sample_Area.width() - 8
                        || QFontMetrics(font).height() > Sample_Area.height())) {
        size = size * 9 / 10;
        font.setPointSize(size);
    }
    lbl_ex_police_->setFont(font);
    QPalette palette = lbl_ex_police_->palette();
    palette.setColor(QPalette::WindowText, Windows_Rgb_Color(uint32_t(form_.Color)));
    lbl_ex_police_->setPalette(palette);
}

void Frm_Config::Show_Drives()
{
    const QString none = texts_.Get_Text(Config_Window_Text::No_Drive);
    const QString drives[2] = {form_.CD1, form_.CD2};
    for (std::size_t k = 0; k < 2; ++k) {
        Skin_Label* label = lbl_cd_value_[k];
        label->setText(drives[k].isEmpty() ? none : drives[k]);
        label->Set_Colors(drives[k].isEmpty() ? Skin_Palette::Panel_Dim : Skin_Palette::Display_Text);
        label->update();
    }
}

void Frm_Config::Button_Released(int index)
{
    if (index == 0)
        Confirm_Config_Form(form_, settings_, subtitles_shown_ && subtitles_shown_(), actions_);
    Unload();
}

void Frm_Config::Unload()
{
    hide();
    emit Unloaded();
}

void Frm_Config::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatioF();
    if (background_.isNull() || background_.devicePixelRatio() != ratio)
        background_ = Render_Skin_Picture(QStringLiteral("config_background"), size(), ratio);
    QPainter painter(this);
    painter.drawPixmap(0, 0, background_);
    // The swatch is the colour itself, under its clickable label.
    painter.setPen(QColor(0, 0, 0));
    painter.setBrush(Windows_Rgb_Color(uint32_t(form_.Color)));
    painter.drawRoundedRect(QRectF(Swatch_Area).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

void Frm_Config::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Drag_Window(this);
}

void Frm_Config::keyPressEvent(QKeyEvent* event)
{
    if (!Is_Modifier_Only(event->key()) && forward_key_)
        forward_key_(Key_Press_Code(*event));
}

} // namespace Orvane
