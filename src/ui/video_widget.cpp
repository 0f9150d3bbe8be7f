#include "ui/video_widget.h"

#include <QPainter>

namespace Orvane {

Video_Widget::Video_Widget(QWidget* parent) : QWidget(parent)
{
    // Every pixel is painted here: no background erase before each frame.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize Video_Widget::Picture_Pixels() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

void Video_Widget::Show_Frame(const QImage& frame)
{
    frame_ = frame;
    update();
}

void Video_Widget::Clear_Frame()
{
    frame_ = QImage();
    update();
}

void Video_Widget::resizeEvent(QResizeEvent*)
{
    emit Picture_Pixels_Changed(Picture_Pixels());
}

void Video_Widget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (frame_.isNull()) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    if (frame_.size() != Picture_Pixels())
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), frame_);
}

} // namespace Orvane
