#pragma once

#include "ui/skin_controls.h"

#include <QWidget>
#include <array>

namespace Orvane {

class Playlist_Model;
class Skin_Label;
class Skin_Picture;

// The subtitle tab: the subtitle of a track (title, author, source, file),
// its delay with the two delay buttons Lbl_Var_Delai(0..1), the yes/no
// option Img_Option, and the button that chooses a subtitle file.
class Playlist_Panel_Subtitles : public QWidget {
    Q_OBJECT
public:
    Playlist_Panel_Subtitles(Playlist_Model& model, QWidget* parent);

    void Show_Subtitle(int track);
    QWidget* Strip() const { return strip_; }

    Skin_Label* Lbl_Piste;
    Skin_Label* Lbl_Val_Piste;
    Skin_Label* Lbl_Titre_ST;
    Skin_Label* Lbl_Val_Titre_ST;
    std::array<Skin_Label*, 2> Lbl_Info_ST;      // author, source
    std::array<Skin_Label*, 2> Lbl_Val_Info_ST;
    Skin_Label* Lbl_Fichier_ST;
    Skin_Label* Lbl_Delai;
    Skin_Label* Lbl_Val_Delai;
    std::array<Picture_Button*, 2> Lbl_Var_Delai;  // 0 up, 1 down
    Picture_Button* Img_Option;
    Skin_Picture* Img_Option_Coche;
    Skin_Label* Lbl_Option;
    Captioned_Button Btn_ST;

    // Shown while the panel's track has no subtitle file, or no track is chosen.
    QString No_Subtitle_Text;
    QString No_Track_Text;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Playlist_Model& model_;
    QWidget* strip_;
};

} // namespace Orvane
