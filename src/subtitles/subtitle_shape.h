#pragma once

#include "config/settings.h"
#include "subtitles/subtitle_table.h"

#include <QFont>
#include <QPainterPath>
#include <QRegion>
#include <QSize>
#include <QString>

namespace Orvane {

// The geometry of the subtitle window: how its two lines are placed, cut out
// and sized. Plain functions of the settings and the table, no window needed.
namespace Subtitle_Shape {

// Line 2 is drawn this far below line 1, whatever the font size.
constexpr int Line2_Offset = 40;
// The dark edge around the letters in transparent mode, so that white
// letters stay readable over a white picture.
constexpr int Edge_Width = 2;

// The settings' face, bold and italic at a size in points. A size the font
// cannot take (0 or less) is the smallest there is.
QFont Subtitle_Font(const Settings& settings, int size);

// The size entry n is drawn at: its own when the layout shrank it, else the
// settings' size. An entry outside the table has none of its own.
int Entry_Size(const Subtitle_Table& table, int n, int settings_size);

// Where entry n's lines start (0 outside the table).
struct Left_Edges {
    int left1 = 0;
    int left2 = 0;
};
Left_Edges Entry_Left_Edges(const Subtitle_Table& table, int n);

// The outline of line 1 with the top of its letters' cell at (left1, 0) and
// line 2 at (left2, 40), as text drawn into a path.
QPainterPath Text_Outline(const QFont& font, const QString& line1, int left1, const QString& line2,
                          int left2);

// The window area of the outline: the filled letters grown by edge pixels
// on every side (0 for the letters' exact outline). An empty outline gives
// an empty region.
QRegion Build_Text_Region(const QPainterPath& outline, int edge = 0);

// The text of the opaque label: line 1, a line feed, line 2 (the line feed
// even when line 2 is empty).
QString Label_Text(const QString& line1, const QString& line2);

// A window for two lines at the settings' size: line 2's offset plus one
// line, or two whole lines when they are taller, and the edge; never taller
// than the screen.
int Window_Height(const QFont& settings_font, int screen_height);

} // namespace Subtitle_Shape

} // namespace Orvane
