#include "ui/skin_label.h"

#include "ui/skin_accessibility.h"

#include <QMouseEvent>
#include <QPainter>

namespace Orvane {

Skin_Label::Skin_Label(const QString& text, QWidget* parent)
    : QLabel(text, parent), normal_color_(palette().color(QPalette::WindowText))
{
    Ensure_Skin_Accessibility();
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void Skin_Label::Set_Clickable(bool clickable)
{
    clickable_ = clickable;
    setCursor(clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void Skin_Label::Set_Colors(const QColor& normal, const QColor& hovered)
{
    normal_color_ = normal;
    hovered_color_ = hovered;
    update();
}

void Skin_Label::Press()
{
    if (!clickable_ || !isEnabled())
        return;
    emit Left_Pressed();
    emit Clicked();
}

void Skin_Label::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(font());
    const bool lit = hovered_ && clickable_ && hovered_color_.isValid();
    painter.setPen(lit ? hovered_color_ : normal_color_);
    const QRect area = contentsRect();
    if (wordWrap()) {
        painter.drawText(area, int(alignment()) | Qt::TextWordWrap, text());
        return;
    }
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, area.width());
    painter.drawText(area, int(alignment()) | Qt::TextSingleLine, shown);
}

void Skin_Label::mousePressEvent(QMouseEvent* event)
{
    if (!clickable_ || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressed_ = true;
    emit Left_Pressed();
}

void Skin_Label::mouseReleaseEvent(QMouseEvent* event)
{
    if (!clickable_) {
        event->ignore();
        return;
    }
    const bool was_pressed = pressed_ && event->button() == Qt::LeftButton;
    pressed_ = false;
    if (was_pressed && rect().contains(event->position().toPoint()))
        emit Clicked();
}

void Skin_Label::enterEvent(QEnterEvent*)
{
    hovered_ = true;
    if (clickable_)
        update();
}

void Skin_Label::leaveEvent(QEvent*)
{
    hovered_ = false;
    if (clickable_)
        update();
}

} // namespace Orvane
