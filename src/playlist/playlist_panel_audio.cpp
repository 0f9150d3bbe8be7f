#include "playlist/playlist_panel_audio.h"

#include "playlist/playlist_model.h"
#include "playlist/playlist_window_state.h"
#include "playlist/playlist_window_layout.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"

#include <QListView>
#include <QPainter>

namespace Orvane {

namespace Layout = Playlist_Window_Layout;

namespace {
constexpr QRect Audio_Caption(25, 36, 370, 18);
constexpr QRect Audio_List(19, 58, 382, 184);
} // namespace

Playlist_Panel_Audio::Playlist_Panel_Audio(Playlist_Model& model, Playlist_Window_State& window_state, QWidget* parent)
    : QWidget(parent), model_(model), window_state_(window_state), strip_(new QWidget(this))
{
    setObjectName(QStringLiteral("Pic_Audio"));
    Lbl_Piste = Make_Label(this, QStringLiteral("Lbl_Piste_Audio"), Layout::Track_Caption, 11, Skin_Palette::Display_Dim);
    Lbl_Val_Piste = Make_Label(this, QStringLiteral("Lbl_Val_Piste_Audio"), Layout::Track_Title, 13,
                               Skin_Palette::Display_Text, true);
    Lbl_Audio_Asso = Make_Label(this, QStringLiteral("Lbl_Audio_Asso"), Audio_Caption, 11, Skin_Palette::Accent);
    Lbl_Audio_Asso->setFont(Skin_Palette::Label_Font(10, true, true));

    Lst_Audio_Asso = new QListView(this);
    Lst_Audio_Asso->setObjectName(QStringLiteral("Lst_Audio_Asso"));
    Lst_Audio_Asso->setGeometry(Audio_List);
    Style_Display_List(Lst_Audio_Asso);
    Lst_Audio_Asso->setModel(window_state.Audio_List());
    Lst_Audio_Asso->setSelectionModel(window_state.Audio_Selection());
    connect(window_state.Audio_Selection(), &QItemSelectionModel::currentChanged, this,
            &Playlist_Panel_Audio::Show_Entry_Info);
    connect(window_state.Audio_List(), &QAbstractItemModel::modelReset, this, &Playlist_Panel_Audio::Show_Entry_Info);

    const int row1 = Layout::Details_Top;
    const int row2 = row1 + Layout::Details_Row;
    Lbl_Duree_Audio = Make_Label(this, QStringLiteral("Lbl_Duree_Audio"), Layout::Left_Caption(row1), 11,
                                 Skin_Palette::Display_Dim);
    Lbl_Val_Duree_Audio = Make_Label(this, QStringLiteral("Lbl_Val_Duree_Audio"), Layout::Left_Value(row1), 12,
                                     Skin_Palette::Display_Text);
    Lbl_Val_Duree_Audio->setFont(Skin_Palette::Time_Font(12));
    Lbl_Type_Audio = Make_Label(this, QStringLiteral("Lbl_Type_Audio"), Layout::Right_Caption(row1), 11,
                                Skin_Palette::Display_Dim);
    Lbl_Val_Type_Audio = Make_Label(this, QStringLiteral("Lbl_Val_Type_Audio"), Layout::Right_Value(row1), 12,
                                    Skin_Palette::Display_Text);
    Lbl_Chemin_Audio = Make_Label(this, QStringLiteral("Lbl_Chemin_Audio"), QRect(25, row2, 370, 18), 11,
                                  Skin_Palette::Display_Dim);

    strip_->setObjectName(QStringLiteral("Pic_Boutons_Audio"));
    strip_->setGeometry(Layout::Strip);
    Btn_Ajouter_Audio = Make_Captioned_Button(strip_, QStringLiteral("button_add"),
                                              QStringLiteral("Img_Btn_Ajouter_Audio"),
                                              QStringLiteral("Lbl_Btn_Ajouter_Audio"), Layout::Strip_Slot(0, 0),
                                              Layout::Strip_Caption_Width);
    Btn_Retirer_Audio = Make_Captioned_Button(strip_, QStringLiteral("button_remove"),
                                              QStringLiteral("Img_Btn_Retirer_Audio"),
                                              QStringLiteral("Lbl_Btn_Retirer_Audio"), Layout::Strip_Slot(0, 1),
                                              Layout::Strip_Caption_Width);
    Show_Track_Info(0);
}

void Playlist_Panel_Audio::Show_Track_Info(int track)
{
    Lbl_Val_Piste->setText(model_.Is_Track(track) ? model_.Track(track).Title : No_Track_Text);
    Show_Entry_Info();
}

void Playlist_Panel_Audio::Show_Entry_Info()
{
    const int track = window_state_.Info_Track();
    const int row = window_state_.Audio_Selection()->currentIndex().row();
    if (!model_.Is_Track(track) || row < 0 || row >= int(model_.Track(track).Associated_Audio.size())) {
        Lbl_Val_Duree_Audio->setText(QStringLiteral("--"));
        Lbl_Val_Type_Audio->setText(QStringLiteral("--"));
        Lbl_Chemin_Audio->clear();
        return;
    }
    const Associated_Audio_Entry& entry = model_.Track(track).Associated_Audio[std::size_t(row)];
    Lbl_Val_Duree_Audio->setText(entry.Duration_Text);
    Lbl_Val_Type_Audio->setText(entry.Kind);
    Lbl_Chemin_Audio->setText(entry.Path);
    Lbl_Chemin_Audio->setToolTip(entry.Path);
}

void Playlist_Panel_Audio::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint_Rule(painter, 30, Layout::Rule_Left, Layout::Rule_Right);
    Paint_Rule(painter, Layout::Track_List.bottom() + 5, Layout::Rule_Left, Layout::Rule_Right);
}

} // namespace Orvane
