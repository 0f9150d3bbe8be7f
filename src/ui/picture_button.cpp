#include "ui/picture_button.h"

#include <QMouseEvent>
#include <QPainter>

namespace Orvane {

Picture_Button::Picture_Button(const QString& skin_name, QWidget* parent)
    : Skin_Picture(skin_name, parent)
{
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void Picture_Button::Place(const QRect& resting_place)
{
    setGeometry(resting_place);
    resting_top_ = resting_place.top();
}

const QPixmap& Picture_Button::Highlighted()
{
    const QPixmap& base = Rendered();
    if (highlighted_key_ != base.cacheKey()) {
        // The same picture, lightened where it is drawn so the transparent
        // surroundings stay transparent.
        highlighted_ = base;
        QPainter painter(&highlighted_);
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.fillRect(QRectF(QPointF(0, 0), base.deviceIndependentSize()),
                         QColor(255, 255, 255, 26));
        highlighted_key_ = base.cacheKey();
    }
    return highlighted_;
}

void Picture_Button::Press()
{
    if (!isEnabled())
        return;
    emit Mouse_Down(Qt::LeftButton, Qt::NoModifier);
    emit Mouse_Up(Qt::LeftButton, Qt::NoModifier);
    emit Clicked(Qt::LeftButton, Qt::NoModifier);
}

void Picture_Button::paintEvent(QPaintEvent* event)
{
    if (!hovered_) {
        Skin_Picture::paintEvent(event);
        return;
    }
    if (Rendered().isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(0, 0, Highlighted());
}

void Picture_Button::mousePressEvent(QMouseEvent* event)
{
    pressed_ |= event->button();
    emit Mouse_Down(event->button(), event->modifiers());
}

void Picture_Button::mouseDoubleClickEvent(QMouseEvent* event)
{
    // A quick second press is a press like any other for a button.
    mousePressEvent(event);
}

void Picture_Button::mouseReleaseEvent(QMouseEvent* event)
{
    const Qt::MouseButton button = event->button();
    const bool was_pressed = pressed_.testFlag(button);
    pressed_ &= ~Qt::MouseButtons(button);
    emit Mouse_Up(button, event->modifiers());
    if (was_pressed && rect().contains(event->position().toPoint()))
        emit Clicked(button, event->modifiers());
}

void Picture_Button::enterEvent(QEnterEvent*)
{
    hovered_ = true;
    update();
}

void Picture_Button::leaveEvent(QEvent*)
{
    hovered_ = false;
    update();
}

} // namespace Orvane
