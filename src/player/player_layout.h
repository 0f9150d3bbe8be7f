#pragma once

#include <QRect>
#include <QString>

#include <array>
#include <cstdint>
#include <vector>

// Where everything sits on the player bar, in pixels of the player window.
// The bar's picture (player_background) is drawn for these places.
namespace Orvane::Player_Layout {

inline constexpr int Window_Width = 600;
inline constexpr int Design_Height = 133;    // the bar itself
inline constexpr int Unrolled_Height = 260;  // with the status strip and the lower panel
inline constexpr int Window_Corner = 62;
inline constexpr int Twips_Per_Pixel = 15;

inline constexpr int Button_Count = 13;
// Button_Tops: the resting top edge of each Img_Btn(i).
inline constexpr std::array<int16_t, Button_Count> Button_Tops = {
    91, 91, 91, 91, 55, 55, 55, 55, 55, 85, 89, 89, 89};

// Img_Btn(i) at rest; its top is Button_Tops[i].
QRect Button_Place(int index);
// The skin picture of Img_Btn(i).
QString Button_Picture(int index);

inline constexpr int Volume_Levels = 7;  // Img_Vol(0..6), all on Volume_Gauge

inline constexpr QRect Time_Label{34, 12, 114, 35};        // Lbl_Affichage_Temps
inline constexpr QRect Time_Mode_Label{160, 13, 220, 15};  // Lbl_Indic_Type_Temps
inline constexpr QRect Track_Number_Label{430, 13, 62, 15};  // Lbl_Affichage_Rang
inline constexpr QRect Title_Label{160, 29, 332, 18};      // Lbl_Affichage_Fichier
inline constexpr QRect Quit_Label{510, 9, 64, 41};         // Lbl_Quitter
inline constexpr QRect Progress_Track{34, 57, 310, 20};    // Lbl_Avancement
// Img_Avancement: its centre line marks the cursor's left edge along the
// track, so the knob sits on the spot the mouse points at.
inline constexpr QSize Progress_Cursor_Size{14, 20};
inline constexpr QRect Caption_Label{404, 89, 54, 16};     // Label1, the gauge's caption
inline constexpr QRect Volume_Gauge{462, 86, 70, 22};      // Img_Vol(0..6)
inline constexpr QRect Audio_Lamp{30, 136, 16, 12};        // Img_Temoin_ML
inline constexpr QRect Audio_Label{50, 134, 236, 16};      // Lbl_Affichage_ML
inline constexpr QRect Subtitle_Lamp{300, 136, 16, 12};    // Img_Temoin_ST(0..1)
inline constexpr QRect Subtitle_Label{320, 134, 250, 16};  // Lbl_Affichage_Sub

// The cursor picture's place for a cursor left edge of left pixels.
QRect Progress_Cursor_Place(int left);

// One control and its place, for checks that look at the whole bar.
struct Layout_Item {
    QString name;
    QRect place;
};
// Every control that the window shows at rest.
std::vector<Layout_Item> Layout_Items();

} // namespace Orvane::Player_Layout
