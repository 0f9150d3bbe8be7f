#include "playlist/frm_playlist.h"

#include "language/text_table.h"
#include "playlist/name_from_path.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_files.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_panel_audio.h"
#include "playlist/playlist_panel_subtitles.h"
#include "playlist/playlist_panel_tracks.h"
#include "playlist/playlist_window_batch.h"
#include "playlist/playlist_window_layout.h"
#include "playlist/playlist_window_progress.h"
#include "playlist/playlist_window_texts.h"
#include "ui/cdlg_ex.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"
#include "ui/skin_picture.h"
#include "ui/window_shell.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>

namespace Orvane {

namespace Layout = Playlist_Window_Layout;

namespace {

// Open dialog flags: explorer style and long names, with or without the
// choice of several files.
constexpr int32_t Open_One_File = 0x280000;
constexpr int32_t Open_Several_Files = 0x280200;

constexpr const char* Tab_Pictures[3] = {"tab_playlist", "tab_audio", "tab_subtitles"};
constexpr const char* Tab_Names[3] = {"Img_Onglet_Playlist", "Img_Onglet_Audio", "Img_Onglet_ST"};
constexpr const char* Tab_Caption_Names[3] = {"Lbl_Onglet_Playlist", "Lbl_Onglet_Audio", "Lbl_Onglet_ST"};

bool Is_List_Navigation(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown
        || key == Qt::Key_Home || key == Qt::Key_End;
}

void On_Click(const Captioned_Button& button, QObject* receiver, const std::function<void()>& action)
{
    QObject::connect(button.picture, &Picture_Button::Clicked, receiver, [action](Qt::MouseButton pressed) {
        if (pressed == Qt::LeftButton)
            action();
    });
    QObject::connect(button.caption, &Skin_Label::Clicked, receiver, action);
}

QString Up_To_Nul(const QString& text)
{
    const qsizetype nul = text.indexOf(QChar(u'\0'));
    return nul < 0 ? text : text.left(nul);
}

} // namespace

Frm_PlayList::Frm_PlayList(Playlist_Model& model, Playback_State& state, CdlgEx& dialog, const Settings& settings,
                           const Text_Table& texts, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint),
      model_(model),
      window_state_(model),
      state_(state),
      dialog_(dialog),
      settings_(settings),
      texts_(texts)
{
    setObjectName(QStringLiteral("Frm_PlayList"));
    setFixedSize(Layout::Window_Size);
    setFocusPolicy(Qt::StrongFocus);

    close_ = Make_Picture_Button(this, QStringLiteral("button_close"), QStringLiteral("Img_Fermer"),
                                 Layout::Close_Button);
    Build_Tabs();
    tracks_ = new Playlist_Panel_Tracks(model, window_state_, state, this);
    audio_ = new Playlist_Panel_Audio(model, window_state_, this);
    subtitles_ = new Playlist_Panel_Subtitles(model, this);
    for (QWidget* panel : {static_cast<QWidget*>(tracks_), static_cast<QWidget*>(audio_),
                           static_cast<QWidget*>(subtitles_)})
        panel->setGeometry(Layout::Panel);

    progress_ = new Playlist_Window_Progress(this);
    progress_->setObjectName(QStringLiteral("Pic_Progression"));
    progress_->setGeometry(Layout::Strip.translated(Layout::Panel.topLeft()));
    progress_->hide();
    batch_ = new Playlist_Window_Batch(model, this);

    for (QListView* list : {tracks_->Lst_Playlist, audio_->Lst_Audio_Asso})
        list->installEventFilter(this);

    Connect_Buttons();
    Connect_Model();
    Show_Tab(Tab_Playlist);
    Refresh_Usable();
    Shape_Window(this, Corner);
}

Frm_PlayList::~Frm_PlayList()
{
    // The panels' lists show the window state's models, which go with the
    // members, before the children would.
    delete tracks_;
    delete audio_;
    delete subtitles_;
}

void Frm_PlayList::Build_Tabs()
{
    for (int i = 0; i < 3; ++i) {
        Picture_Button* tab = Make_Picture_Button(this, QString::fromLatin1(Tab_Pictures[i]),
                                                  QString::fromLatin1(Tab_Names[i]), Layout::Tab(i));
        // The caption lets presses through to the tab it sits on.
        Skin_Label* caption = Make_Label(tab, QString::fromLatin1(Tab_Caption_Names[i]), Layout::Tab_Caption, 11,
                                         Skin_Palette::Panel_Dim);
        connect(tab, &Picture_Button::Clicked, this, [this, i](Qt::MouseButton button) {
            if (button == Qt::LeftButton)
                Show_Tab(i);
        });
        tabs_[std::size_t(i)] = tab;
        tab_captions_[std::size_t(i)] = caption;
    }
}

void Frm_PlayList::Connect_Buttons()
{
    connect(close_, &Picture_Button::Clicked, this, [this](Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            hide();
    });

    // Shift held when the add button is released replaces the playlist.
    connect(tracks_->Btn_Ajouter.picture, &Picture_Button::Clicked, this,
            [this](Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
                if (button == Qt::LeftButton)
                    Add_Video(modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0);
            });
    connect(tracks_->Btn_Ajouter.caption, &Skin_Label::Clicked, this, [this] {
        Add_Video(QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier) ? 1 : 0);
    });
    On_Click(tracks_->Btn_Retirer, this, [this] { Remove_Selected_Track(); });
    On_Click(tracks_->Btn_Ouvrir, this, [this] { Open_Playlist(); });
    On_Click(tracks_->Btn_Sauver, this, [this] { Save_Playlist_File(); });
    On_Click(audio_->Btn_Ajouter_Audio, this, [this] { Add_Associated_Audio(); });
    On_Click(audio_->Btn_Retirer_Audio, this, [this] { Remove_Associated_Audio(); });
    On_Click(subtitles_->Btn_ST, this, [this] { Choose_Subtitle_File(); });

    for (int direction = 0; direction < 2; ++direction)
        connect(subtitles_->Lbl_Var_Delai[std::size_t(direction)], &Picture_Button::Clicked, this,
                [this, direction](Qt::MouseButton button) {
                    if (button == Qt::LeftButton)
                        model_.Step_Subtitle_Delay(direction);
                });
    connect(subtitles_->Img_Option, &Picture_Button::Clicked, this, [this](Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            model_.Toggle_Subtitle_Flag(window_state_.Subtitle_Panel_Track());
    });
    connect(subtitles_->Lbl_Option, &Skin_Label::Clicked, this,
            [this] { model_.Toggle_Subtitle_Flag(window_state_.Subtitle_Panel_Track()); });

    connect(tracks_->Lst_Playlist, &QListView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.isValid() && play_track_)
            play_track_(index.row() + 1);
    });
    connect(progress_, &Playlist_Window_Progress::Cancel_Requested, batch_, &Playlist_Window_Batch::Cancel);
}

void Frm_PlayList::Connect_Model()
{
    Playlist_Window_State* shown = &window_state_;
    connect(shown, &Playlist_Window_State::Track_Info_Changed, this, [this](int track) {
        tracks_->Show_Track_Info(track);
        audio_->Show_Track_Info(track);
        Refresh_Usable();
    });
    connect(shown, &Playlist_Window_State::Subtitle_Panel_Changed, subtitles_, &Playlist_Panel_Subtitles::Show_Subtitle);
    connect(shown, &Playlist_Window_State::Playlist_Duration_Changed, tracks_, &Playlist_Panel_Tracks::Show_Total);
    connect(shown, &Playlist_Window_State::Track_Controls_Usable_Changed, this, [this] { Refresh_Usable(); });
    connect(shown->Audio_Selection(), &QItemSelectionModel::currentChanged, this, [this] { Refresh_Usable(); });
    connect(shown->Playlist_Selection(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid())
                    tracks_->Lst_Playlist->scrollTo(current);
            });

    connect(batch_, &Playlist_Window_Batch::Started, this, [this](bool reading_playlist, int total) {
        progress_->Start(reading_playlist ? reading_caption_ : adding_caption_, total);
        Show_Busy(true);
    });
    connect(batch_, &Playlist_Window_Batch::Progress, this, [this](int done, int total) {
        if (total != progress_->Total())
            progress_->Start(progress_->Lbl_Progression()->text(), total);
        progress_->Set_Done(done);
    });
    connect(batch_, &Playlist_Window_Batch::Finished, this, [this] { Show_Busy(false); });
}

const std::array<int16_t, 17>& Frm_PlayList::Caption_Numbers()
{
    static const std::array<int16_t, 17> numbers{
        Text_Tab_Playlist, Text_Tab_Audio,    Text_Tab_Subtitles, Text_Add,
        Text_Remove,       Text_Open,         Text_Save,          Text_Duration,
        Text_Picture_Size, Text_Kind,         Text_Streams,       Text_Total_Duration,
        Text_Associated_Audio, Text_Subtitle_File, Text_Delay,    Text_Subtitle_Info_1,
        Text_Subtitle_Info_2};
    return numbers;
}

void Frm_PlayList::Apply_Texts(const Text_Table& texts)
{
    // The fixed list: one caption per number, in the order of Caption_Numbers().
    Skin_Label* const captions[17] = {
        tab_captions_[0], tab_captions_[1], tab_captions_[2],
        tracks_->Btn_Ajouter.caption, tracks_->Btn_Retirer.caption,
        tracks_->Btn_Ouvrir.caption, tracks_->Btn_Sauver.caption,
        tracks_->Lbl_Duree, tracks_->Lbl_Taille, tracks_->Lbl_Type, tracks_->Lbl_Streams,
        tracks_->Lbl_Duree_Totale, audio_->Lbl_Audio_Asso,
        subtitles_->Btn_ST.caption, subtitles_->Lbl_Delai,
        subtitles_->Lbl_Info_ST[0], subtitles_->Lbl_Info_ST[1],
    };
    for (std::size_t k = 0; k < Caption_Numbers().size(); ++k)
        captions[k]->setText(texts.Get_Text(Caption_Numbers()[k]));

    // The same words where the other tabs need them.
    audio_->Btn_Ajouter_Audio.caption->setText(texts.Get_Text(Text_Add));
    audio_->Btn_Retirer_Audio.caption->setText(texts.Get_Text(Text_Remove));
    audio_->Lbl_Duree_Audio->setText(texts.Get_Text(Text_Duration));
    audio_->Lbl_Type_Audio->setText(texts.Get_Text(Text_Kind));
    subtitles_->Lbl_Titre_ST->setText(texts.Get_Text(Text_Subtitle_Title));
    subtitles_->Lbl_Option->setText(texts.Get_Text(Text_Apply_Delay));
    audio_->Lbl_Piste->setText(texts.Get_Text(Text_Track));
    subtitles_->Lbl_Piste->setText(texts.Get_Text(Text_Track));
    audio_->No_Track_Text = texts.Get_Text(Text_No_Track);
    subtitles_->No_Track_Text = texts.Get_Text(Text_No_Track);
    subtitles_->No_Subtitle_Text = texts.Get_Text(Text_No_Subtitle);
    adding_caption_ = texts.Get_Text(Text_Adding_Files);
    reading_caption_ = texts.Get_Text(Text_Reading_Playlist);
    progress_->Set_Texts(texts.Get_Text(Text_Cancel));

    close_->setToolTip(texts.Get_Text(Text_Close));
    tracks_->Btn_Ajouter.picture->setToolTip(texts.Get_Text(Text_Add_Tip));
    tracks_->Btn_Retirer.picture->setToolTip(texts.Get_Text(Text_Remove_Tip));
    tracks_->Btn_Ouvrir.picture->setToolTip(texts.Get_Text(Text_Open));
    tracks_->Btn_Sauver.picture->setToolTip(texts.Get_Text(Text_Save));
    audio_->Btn_Ajouter_Audio.picture->setToolTip(texts.Get_Text(Text_Add_Audio_Tip));
    audio_->Btn_Retirer_Audio.picture->setToolTip(texts.Get_Text(Text_Remove_Audio_Tip));
    subtitles_->Btn_ST.picture->setToolTip(texts.Get_Text(Text_Subtitle_File));
    subtitles_->Lbl_Var_Delai[0]->setToolTip(texts.Get_Text(Text_Delay_Up));
    subtitles_->Lbl_Var_Delai[1]->setToolTip(texts.Get_Text(Text_Delay_Down));
    tracks_->Lst_Playlist->setToolTip(texts.Get_Text(Text_List_Tip));

    // The names assistive technologies read for the window and its parts
    // that have no caption of their own.
    setWindowTitle(texts.Get_Text(Text_Tab_Playlist));
    for (std::size_t i = 0; i < tabs_.size(); ++i)
        tabs_[i]->setAccessibleName(tab_captions_[i]->text());
    tracks_->Lst_Playlist->setAccessibleName(texts.Get_Text(Text_Tab_Playlist));
    audio_->Lst_Audio_Asso->setAccessibleName(texts.Get_Text(Text_Associated_Audio));
    subtitles_->Img_Option->setAccessibleName(texts.Get_Text(Text_Apply_Delay));

    // Texts shown for "nothing" follow the language too.
    audio_->Show_Track_Info(window_state_.Info_Track());
    subtitles_->Show_Subtitle(window_state_.Subtitle_Panel_Track());
}

void Frm_PlayList::Select_Playlist_Entry(int index)
{
    window_state_.Select_Track(index + 1);
    // The current track may have changed with it: its entry is drawn lit.
    tracks_->Lst_Playlist->viewport()->update();
}

void Frm_PlayList::Show_Playlist_Tab()
{
    Show_Tab(Tab_Playlist);
}

void Frm_PlayList::Toggle_Visible()
{
    setVisible(!isVisible());
}

void Frm_PlayList::Click_Add_Video()
{
    // The player's Open button clicks the add button without a mouse release
    // on it: no Shift, so it appends.
    Add_Video(0);
}

void Frm_PlayList::Prepare_Dialog(const QString& filter, const QString& default_ext, int32_t flags)
{
    dialog_.Set_CancelError(false);
    dialog_.Set_hOwner(this);
    dialog_.Set_DialogTitle(QString());
    dialog_.Set_DefaultExt(default_ext);
    dialog_.Set_InitDir(QString());
    dialog_.Set_Filter(filter);
    dialog_.Set_FilterIndex(1);
    dialog_.Set_flags(flags);
}

QStringList Frm_PlayList::Ask_Open(const QString& filter, int32_t flags)
{
    Prepare_Dialog(filter, QString(), flags);
    dialog_.ShowOpen();
    if (dialog_.CancelError())
        return {};
    return CdlgEx::Selected_Files(dialog_.FileName());
}

void Frm_PlayList::Add_Video(int16_t mode)
{
    if (batch_->Is_Busy())
        return;
    const QStringList files = Ask_Open(filters_.Filter_Media, Open_Several_Files);
    if (!files.isEmpty())
        batch_->Add_Files(files, mode);
}

void Frm_PlayList::Remove_Selected_Track()
{
    if (!batch_->Is_Busy())
        model_.Remove_Track(window_state_.Selected_Track());
}

void Frm_PlayList::Open_Playlist()
{
    if (batch_->Is_Busy())
        return;
    const QStringList files = Ask_Open(filters_.Filter_Playlists, Open_One_File);
    if (!files.isEmpty())
        batch_->Load(files.first(), settings_, texts_);
}

void Frm_PlayList::Save_Playlist_File()
{
    if (batch_->Is_Busy())
        return;
    Prepare_Dialog(filters_.Filter_Own_Playlist, QStringLiteral("orx"), Open_One_File | CdlgEx::Overwrite_Prompt);
    dialog_.ShowSave();
    if (dialog_.CancelError() || dialog_.FileName().isEmpty())
        return;
    Save_Playlist(dialog_.FileName(), model_.Playlist(), model_.Track_Count(), texts_);
}

void Frm_PlayList::Add_Associated_Audio()
{
    const int track = window_state_.Selected_Track();
    if (track == 0 || batch_->Is_Busy())
        return;
    batch_->Associate_Audio(track, Ask_Open(filters_.Filter_Audio, Open_Several_Files));
}

void Frm_PlayList::Remove_Associated_Audio()
{
    if (!batch_->Is_Busy())
        model_.Remove_Associated_Audio(window_state_.Info_Track(), window_state_.Selected_Audio_Entry());
}

void Frm_PlayList::Choose_Subtitle_File()
{
    const int track = window_state_.Selected_Track();
    if (track == 0 || batch_->Is_Busy())
        return;
    const QStringList files = Ask_Open(filters_.Filter_Subtitles, Open_One_File);
    if (files.isEmpty())
        return;
    QString file_title = Up_To_Nul(dialog_.FileTitle());
    if (file_title.isEmpty())
        file_title = QFileInfo(files.first()).fileName();
    model_.Associate_Subtitle(track, files.first(), file_title);
}

void Frm_PlayList::Show_Tab(int tab)
{
    if (tab < Tab_Playlist || tab > Tab_Subtitles)
        return;
    current_tab_ = tab;
    tracks_->setVisible(tab == Tab_Playlist);
    audio_->setVisible(tab == Tab_Audio);
    subtitles_->setVisible(tab == Tab_Subtitles);
    for (int i = 0; i < 3; ++i) {
        const bool active = i == tab;
        tabs_[std::size_t(i)]->Set_Picture(QString::fromLatin1(Tab_Pictures[i])
                                           + (active ? QStringLiteral("_active") : QString()));
        tab_captions_[std::size_t(i)]->Set_Colors(active ? Skin_Palette::Panel_Hover : Skin_Palette::Panel_Dim);
    }
}

void Frm_PlayList::Refresh_Usable()
{
    const bool idle = !batch_->Is_Busy();
    const bool has_tracks = window_state_.Track_Controls_Usable() && model_.Track_Count() > 0;
    const bool selected = window_state_.Selected_Track() != 0;
    const bool audio_chosen = window_state_.Selected_Audio_Entry() != 0;
    Set_Usable(tracks_->Btn_Ajouter, idle);
    Set_Usable(tracks_->Btn_Ouvrir, idle);
    Set_Usable(tracks_->Btn_Retirer, idle && selected);
    Set_Usable(tracks_->Btn_Sauver, idle && has_tracks);
    Set_Usable(audio_->Btn_Ajouter_Audio, idle && selected);
    Set_Usable(audio_->Btn_Retirer_Audio, idle && selected && audio_chosen);
    Set_Usable(subtitles_->Btn_ST, idle && selected);
    for (Picture_Button* delay : subtitles_->Lbl_Var_Delai)
        Set_Usable(delay, has_tracks);
}

void Frm_PlayList::Show_Busy(bool busy)
{
    for (QWidget* strip : {tracks_->Strip(), audio_->Strip(), subtitles_->Strip()})
        strip->setVisible(!busy);
    progress_->setVisible(busy);
    if (busy)
        progress_->raise();
    Refresh_Usable();
}

void Frm_PlayList::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatioF();
    if (background_.isNull() || background_.deviceIndependentSize() != QSizeF(size())
        || background_.devicePixelRatio() != ratio)
        background_ = Render_Skin_Picture(QStringLiteral("playlist_background"), size(), ratio);
    QPainter painter(this);
    painter.drawPixmap(0, 0, background_);
}

void Frm_PlayList::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Drag_Window(this);
}

void Frm_PlayList::keyPressEvent(QKeyEvent* event)
{
    if (Is_Modifier_Only(event->key()))
        return;
    if (forward_key_)
        forward_key_(Key_Press_Code(*event));
}

bool Frm_PlayList::eventFilter(QObject* watched, QEvent* event)
{
    // The lists keep their arrows and page keys; every other key goes to the
    // player like the window's own.
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (!Is_List_Navigation(key->key())) {
            keyPressEvent(key);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void Frm_PlayList::closeEvent(QCloseEvent* event)
{
    // The window lives as long as the player: closing it only hides it.
    event->ignore();
    hide();
}

void Frm_PlayList::showEvent(QShowEvent* event)
{
    Shape_Window(this, Corner);
    QWidget::showEvent(event);
}

} // namespace Orvane
