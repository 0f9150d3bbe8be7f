#pragma once

#include "ui/skin_controls.h"

#include <QWidget>

class QListView;

namespace Orvane {

class Playlist_Model;
class Playlist_Window_State;
class Skin_Label;

// The associated audio tab: the track it is about, Lst_Audio_Asso with the
// details of the chosen file, and the add and remove buttons.
class Playlist_Panel_Audio : public QWidget {
    Q_OBJECT
public:
    Playlist_Panel_Audio(Playlist_Model& model, Playlist_Window_State& window_state, QWidget* parent);

    void Show_Track_Info(int track);
    void Show_Entry_Info();
    QWidget* Strip() const { return strip_; }

    Skin_Label* Lbl_Piste;
    Skin_Label* Lbl_Val_Piste;
    Skin_Label* Lbl_Audio_Asso;
    QListView* Lst_Audio_Asso;
    Skin_Label* Lbl_Duree_Audio;
    Skin_Label* Lbl_Val_Duree_Audio;
    Skin_Label* Lbl_Type_Audio;
    Skin_Label* Lbl_Val_Type_Audio;
    Skin_Label* Lbl_Chemin_Audio;
    Captioned_Button Btn_Ajouter_Audio;
    Captioned_Button Btn_Retirer_Audio;

    // Shown as the track title while no track is selected.
    QString No_Track_Text;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Playlist_Model& model_;
    Playlist_Window_State& window_state_;
    QWidget* strip_;
};

} // namespace Orvane
