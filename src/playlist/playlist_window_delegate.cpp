#include "playlist/playlist_window_delegate.h"

#include "playlist/playback_state.h"
#include "playlist/playlist_model.h"
#include "ui/skin_palette.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace Orvane {

namespace {
constexpr int Narrowest_Number_Width = 24;  // two digits and the play mark
constexpr int Number_Font_Size = 11;
constexpr int Duration_Width = 62;
constexpr int Side_Margin = 6;
} // namespace

Playlist_Window_Delegate::Playlist_Window_Delegate(const Playlist_Model& model, const Playback_State& state,
                                                   QObject* parent)
    : QStyledItemDelegate(parent), model_(model), state_(state)
{
}

int Playlist_Window_Delegate::Number_Text_Width(int track_count)
{
    const QFontMetrics metrics(Skin_Palette::Label_Font(Number_Font_Size));
    return std::max(Narrowest_Number_Width,
                    metrics.horizontalAdvance(QString::number(std::max(track_count, 1))) + 2);
}

QSize Playlist_Window_Delegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return QSize(option.rect.width(), Row_Height);
}

void Playlist_Window_Delegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    const int track = index.row() + 1;
    if (!model_.Is_Track(track))
        return;
    const Track_Record& record = model_.Track(track);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool current = track == state_.Current_Track;
    const QRect row = option.rect.adjusted(2, 1, -2, -1);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (selected) {
        QColor fill = Skin_Palette::Accent;
        fill.setAlpha(52);
        painter->setPen(QColor(Skin_Palette::Accent.red(), Skin_Palette::Accent.green(),
                               Skin_Palette::Accent.blue(), 90));
        painter->setBrush(fill);
        painter->drawRoundedRect(QRectF(row).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    } else if (index.row() % 2 == 1) {
        painter->fillRect(row, QColor(255, 255, 255, 7));
    }

    const QRect number_area(row.left() + Side_Margin, row.top(), Number_Text_Width(model_.Track_Count()),
                            row.height());
    const QRect duration_area(row.right() - Duration_Width - Side_Margin, row.top(), Duration_Width, row.height());
    const QRect title_area(number_area.right() + 8, row.top(),
                           duration_area.left() - number_area.right() - 14, row.height());

    const QColor text_color = current ? Skin_Palette::Accent
                              : selected ? Skin_Palette::Panel_Hover
                                         : Skin_Palette::Display_Text;
    painter->setFont(Skin_Palette::Label_Font(Number_Font_Size));
    painter->setPen(current ? Skin_Palette::Accent : Skin_Palette::Display_Dim);
    if (current) {
        // The play mark takes the place of the number's right end.
        const qreal mid = number_area.center().y() + 0.5;
        const qreal right = number_area.right() + 1;
        QPainterPath mark;
        mark.moveTo(right - 6, mid - 4.5);
        mark.lineTo(right + 1, mid);
        mark.lineTo(right - 6, mid + 4.5);
        mark.closeSubpath();
        painter->fillPath(mark, Skin_Palette::Accent);
    } else {
        painter->drawText(number_area, Qt::AlignRight | Qt::AlignVCenter, QString::number(track));
    }

    QFont title_font = Skin_Palette::Label_Font(12, current);
    painter->setFont(title_font);
    painter->setPen(text_color);
    const QString title = QFontMetrics(title_font).elidedText(record.Title, Qt::ElideRight, title_area.width());
    painter->drawText(title_area, Qt::AlignLeft | Qt::AlignVCenter, title);

    painter->setFont(Skin_Palette::Time_Font(11));
    painter->setPen(current ? Skin_Palette::Accent : Skin_Palette::Display_Dim);
    painter->drawText(duration_area, Qt::AlignRight | Qt::AlignVCenter, record.Duration_Text);
    painter->restore();
}

} // namespace Orvane
