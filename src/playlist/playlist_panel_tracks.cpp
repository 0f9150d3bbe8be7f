#include "playlist/playlist_panel_tracks.h"

#include "playlist/playlist_model.h"
#include "playlist/playlist_window_state.h"
#include "playlist/playlist_window_delegate.h"
#include "playlist/playlist_window_layout.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"

#include <QListView>
#include <QPainter>

namespace Orvane {

namespace Layout = Playlist_Window_Layout;

Playlist_Panel_Tracks::Playlist_Panel_Tracks(Playlist_Model& model, Playlist_Window_State& window_state,
                                             const Playback_State& state, QWidget* parent)
    : QWidget(parent), model_(model), strip_(new QWidget(this))
{
    setObjectName(QStringLiteral("Pic_Playlist"));
    Lst_Playlist = new QListView(this);
    Lst_Playlist->setObjectName(QStringLiteral("Lst_Playlist"));
    Lst_Playlist->setGeometry(Layout::Track_List);
    Style_Display_List(Lst_Playlist);
    Lst_Playlist->setModel(&model);
    Lst_Playlist->setSelectionModel(window_state.Playlist_Selection());
    Lst_Playlist->setItemDelegate(new Playlist_Window_Delegate(model, state, Lst_Playlist));
    Lst_Playlist->setUniformItemSizes(true);

    const int row1 = Layout::Details_Top;
    const int row2 = row1 + Layout::Details_Row;
    const auto caption = [this](const char* name, QRect place) {
        return Make_Label(this, QString::fromLatin1(name), place, 11, Skin_Palette::Display_Dim);
    };
    const auto value = [this](const char* name, QRect place) {
        return Make_Label(this, QString::fromLatin1(name), place, 12, Skin_Palette::Display_Text);
    };
    Lbl_Duree = caption("Lbl_Duree", Layout::Left_Caption(row1));
    Lbl_Val_Duree = value("Lbl_Val_Duree", Layout::Left_Value(row1));
    Lbl_Taille = caption("Lbl_Taille", Layout::Right_Caption(row1));
    Lbl_Val_Taille = value("Lbl_Val_Taille", Layout::Right_Value(row1));
    Lbl_Type = caption("Lbl_Type", Layout::Left_Caption(row2));
    Lbl_Val_Type = value("Lbl_Val_Type", Layout::Left_Value(row2));
    Lbl_Streams = caption("Lbl_Streams", Layout::Right_Caption(row2));
    Lbl_Val_Streams = value("Lbl_Val_Streams", Layout::Right_Value(row2));
    for (Skin_Label* shown : {Lbl_Val_Duree, Lbl_Val_Taille})
        shown->setFont(Skin_Palette::Time_Font(12));

    Lbl_Duree_Totale = Make_Label(this, QStringLiteral("Lbl_Duree_Totale"), Layout::Total_Caption, 12,
                                  Skin_Palette::Display_Dim, true);
    Lbl_Val_Duree_Totale = Make_Label(this, QStringLiteral("Lbl_Val_Duree_Totale"), Layout::Total_Value, 12,
                                      Skin_Palette::Accent);
    Lbl_Val_Duree_Totale->setFont(Skin_Palette::Time_Font(17));
    Lbl_Val_Duree_Totale->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    strip_->setObjectName(QStringLiteral("Pic_Boutons_Playlist"));
    strip_->setGeometry(Layout::Strip);
    Btn_Ajouter = Make_Captioned_Button(strip_, QStringLiteral("button_add"), QStringLiteral("Img_Btn_Ajouter"),
                                        QStringLiteral("Lbl_Btn_Ajouter"), Layout::Strip_Slot(0, 0),
                                        Layout::Strip_Caption_Width);
    Btn_Retirer = Make_Captioned_Button(strip_, QStringLiteral("button_remove"), QStringLiteral("Img_Btn_Retirer"),
                                        QStringLiteral("Lbl_Btn_Retirer"), Layout::Strip_Slot(0, 1),
                                        Layout::Strip_Caption_Width);
    Btn_Ouvrir = Make_Captioned_Button(strip_, QStringLiteral("button_open_list"), QStringLiteral("Img_Btn_Ouvrir"),
                                       QStringLiteral("Lbl_Btn_Ouvrir"), Layout::Strip_Slot(1, 0),
                                       Layout::Strip_Caption_Width);
    Btn_Sauver = Make_Captioned_Button(strip_, QStringLiteral("button_save_list"), QStringLiteral("Img_Btn_Sauver"),
                                       QStringLiteral("Lbl_Btn_Sauver"), Layout::Strip_Slot(1, 1),
                                       Layout::Strip_Caption_Width);
    Show_Track_Info(0);
    Show_Total(window_state.Playlist_Duration_Text());
}

void Playlist_Panel_Tracks::Show_Track_Info(int track)
{
    if (!model_.Is_Track(track)) {
        for (Skin_Label* shown : {Lbl_Val_Duree, Lbl_Val_Taille, Lbl_Val_Type, Lbl_Val_Streams})
            shown->setText(QStringLiteral("--"));
        return;
    }
    const Track_Record& record = model_.Track(track);
    Lbl_Val_Duree->setText(record.Duration_Text);
    Lbl_Val_Taille->setText(record.Picture_Size);
    Lbl_Val_Type->setText(record.Kind);
    // A count the analysis could not make is kept as -1.
    Lbl_Val_Streams->setText(record.Audio_Streams < 0 ? QStringLiteral("?") : QString::number(record.Audio_Streams));
}

void Playlist_Panel_Tracks::Show_Total(const QString& total)
{
    Lbl_Val_Duree_Totale->setText(total);
}

void Playlist_Panel_Tracks::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint_Rule(painter, Layout::Track_List.bottom() + 5, Layout::Rule_Left, Layout::Rule_Right);
    Paint_Rule(painter, Layout::Total_Caption.top() - 7, Layout::Rule_Left, Layout::Rule_Right);
}

} // namespace Orvane
