#include "ui/skin_progress_track.h"

#include "ui/skin_accessibility.h"
#include "ui/skin_picture.h"

#include <QAccessible>

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Orvane {

namespace {
int Twips(const QMouseEvent& event)
{
    return int(std::floor(event.position().x())) * Skin_Progress_Track::Twips_Per_Pixel;
}
} // namespace

Skin_Progress_Track::Skin_Progress_Track(const QString& track_picture,
                                         const QString& fill_picture, QWidget* parent)
    : QWidget(parent), track_picture_(track_picture), fill_picture_(fill_picture)
{
    Ensure_Skin_Accessibility();
    setFocusPolicy(Qt::NoFocus);
    const QSize own_size = Skin_Picture_Size(track_picture);
    if (!own_size.isEmpty())
        resize(own_size);
}

void Skin_Progress_Track::Set_Fill(int pixels)
{
    if (pixels == fill_)
        return;
    const int shown_before = Fill_Percent();
    fill_ = pixels;
    update();
    if (QAccessible::isActive() && Fill_Percent() != shown_before) {
        QAccessibleValueChangeEvent event(this, Fill_Percent());
        QAccessible::updateAccessibility(&event);
    }
}

int Skin_Progress_Track::Fill_Percent() const
{
    if (width() <= 0)
        return 0;
    return std::clamp(int(std::lround(100.0 * fill_ / width())), 0, 100);
}

void Skin_Progress_Track::Render_If_Needed()
{
    const qreal ratio = devicePixelRatioF();
    if (!track_.isNull() && rendered_size_ == size()
        && qFuzzyCompare(track_.devicePixelRatio(), ratio))
        return;
    rendered_size_ = size();
    track_ = Render_Skin_Picture(track_picture_, size(), ratio);
    lit_ = Render_Skin_Picture(fill_picture_, size(), ratio);
}

void Skin_Progress_Track::paintEvent(QPaintEvent*)
{
    Render_If_Needed();
    QPainter painter(this);
    if (!track_.isNull())
        painter.drawPixmap(0, 0, track_);
    const int lit_width = std::clamp(fill_, 0, width());
    if (lit_width > 0 && !lit_.isNull()) {
        painter.setClipRect(QRect(0, 0, lit_width, height()));
        painter.drawPixmap(0, 0, lit_);
    }
}

void Skin_Progress_Track::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    emit Mouse_Down(Twips(*event));
}

void Skin_Progress_Track::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    emit Mouse_Move(Twips(*event));
}

void Skin_Progress_Track::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    emit Mouse_Up(Twips(*event));
}

} // namespace Orvane
