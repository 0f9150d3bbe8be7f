#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

// Where the playlist window's controls sit, in pixels, over its skin picture
// (playlist_background: a header with the name, the tabs, the dark display
// and a strip of buttons under it). Panel positions are relative to the
// panel, which covers the display and the strip.
namespace Orvane::Playlist_Window_Layout {

inline constexpr QSize Window_Size(420, 480);
inline constexpr QRect Close_Button(392, 8, 18, 18);
inline constexpr QRect Tab(int index) { return QRect(15 + index * 131, 42, 128, 26); }
inline constexpr QRect Tab_Caption(31, 5, 96, 18);  // inside a tab, right of its icon
inline constexpr QRect Panel(0, 69, 420, 411);

// Inside a panel: the display (dark glass) and the strip below it.
inline constexpr QRect Track_List(19, 6, 382, 236);
inline constexpr int Rule_Left = 25;
inline constexpr int Rule_Right = 395;
inline constexpr int Details_Top = 254;
inline constexpr int Details_Row = 22;
inline constexpr QRect Left_Caption(int y) { return QRect(25, y, 80, 18); }
inline constexpr QRect Left_Value(int y) { return QRect(105, y, 100, 18); }
inline constexpr QRect Right_Caption(int y) { return QRect(210, y, 110, 18); }
inline constexpr QRect Right_Value(int y) { return QRect(320, y, 78, 18); }
inline constexpr QRect Total_Caption(25, 310, 200, 22);
inline constexpr QRect Total_Value(225, 306, 170, 28);

// The track a panel is about, at the top of the audio and subtitle panels.
inline constexpr QRect Track_Caption(25, 8, 80, 20);
inline constexpr QRect Track_Title(105, 8, 290, 20);

inline constexpr QRect Strip(0, 350, 420, 61);
inline constexpr int Strip_Caption_Width = 158;
inline constexpr QPoint Strip_Slot(int row, int column) { return QPoint(24 + column * 196, 6 + row * 26); }

} // namespace Orvane::Playlist_Window_Layout
