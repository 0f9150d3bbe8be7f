#include "subtitles/subtitle_shape.h"

#include "config/subtitle_color.h"

#include <QBitmap>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPathStroker>

#include <algorithm>

namespace Orvane::Subtitle_Shape {

namespace {

const Subtitle_Line* Entry(const Subtitle_Table& table, int n)
{
    if (n < 1 || std::size_t(n) >= table.Subtitle_Lines.size())
        return nullptr;
    return &table.Subtitle_Lines[std::size_t(n)];
}

} // namespace

QFont Subtitle_Font(const Settings& settings, int size)
{
    return Orvane::Subtitle_Font(settings.Subtitle_Font_Name, size, settings.Subtitle_Font_Bold,
                                 settings.Subtitle_Font_Italic);
}

int Entry_Size(const Subtitle_Table& table, int n, int settings_size)
{
    const Subtitle_Line* entry = Entry(table, n);
    return entry && entry->size != 0 ? entry->size : settings_size;
}

Left_Edges Entry_Left_Edges(const Subtitle_Table& table, int n)
{
    const Subtitle_Line* entry = Entry(table, n);
    return entry ? Left_Edges{entry->left1, entry->left2} : Left_Edges{};
}

QPainterPath Text_Outline(const QFont& font, const QString& line1, int left1, const QString& line2,
                          int left2)
{
    // Text is placed by its baseline; the lines' positions name the top of
    // their cell.
    const int ascent = QFontMetrics(font).ascent();
    QPainterPath path;
    path.addText(left1, ascent, font, line1);
    path.addText(left2, Line2_Offset + ascent, font, line2);
    return path;
}

QRegion Build_Text_Region(const QPainterPath& outline, int edge)
{
    QPainterPath shape = outline;
    if (edge > 0) {
        QPainterPathStroker stroker;
        stroker.setWidth(2.0 * edge);
        stroker.setJoinStyle(Qt::RoundJoin);
        shape = shape.united(stroker.createStroke(outline));
    }
    const QRect box = shape.boundingRect().toAlignedRect();
    if (outline.isEmpty() || box.isEmpty())
        return {};

    // The outline is filled into a bitmap as large as its box, the region
    // read back from it and moved to where the box lies.
    QBitmap bitmap(box.size());
    bitmap.fill(Qt::color0);
    QPainter painter(&bitmap);
    painter.translate(-box.topLeft());
    painter.fillPath(shape, Qt::color1);
    painter.end();
    return QRegion(bitmap).translated(box.topLeft());
}

QString Label_Text(const QString& line1, const QString& line2)
{
    return line1 + u'\n' + line2;
}

int Window_Height(const QFont& settings_font, int screen_height)
{
    const int line = QFontMetrics(settings_font).height();
    const int height = std::max(Line2_Offset + line, 2 * QFontMetrics(settings_font).lineSpacing());
    return std::min(height + 2 * Edge_Width, std::max(screen_height, 1));
}

} // namespace Orvane::Subtitle_Shape
