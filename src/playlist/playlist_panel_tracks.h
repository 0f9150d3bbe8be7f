#pragma once

#include "ui/skin_controls.h"

#include <QWidget>

class QListView;

namespace Orvane {

class Playlist_Model;
class Playlist_Window_State;
class Skin_Label;
struct Playback_State;

// The playlist tab: Lst_Playlist, the details of the selected track, the
// total duration, and under the display the add, remove, open and save
// buttons. It shows; Frm_PlayList acts on its clicks.
class Playlist_Panel_Tracks : public QWidget {
    Q_OBJECT
public:
    Playlist_Panel_Tracks(Playlist_Model& model, Playlist_Window_State& window_state, const Playback_State& state,
                          QWidget* parent);

    void Show_Track_Info(int track);
    void Show_Total(const QString& total);
    QWidget* Strip() const { return strip_; }

    QListView* Lst_Playlist;
    Skin_Label* Lbl_Duree;
    Skin_Label* Lbl_Taille;
    Skin_Label* Lbl_Type;
    Skin_Label* Lbl_Streams;
    Skin_Label* Lbl_Duree_Totale;
    Skin_Label* Lbl_Val_Duree;
    Skin_Label* Lbl_Val_Taille;
    Skin_Label* Lbl_Val_Type;
    Skin_Label* Lbl_Val_Streams;
    Skin_Label* Lbl_Val_Duree_Totale;
    Captioned_Button Btn_Ajouter;
    Captioned_Button Btn_Retirer;
    Captioned_Button Btn_Ouvrir;
    Captioned_Button Btn_Sauver;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Playlist_Model& model_;
    QWidget* strip_;
};

} // namespace Orvane
