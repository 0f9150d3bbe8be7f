#include "ui/video_widget.h"

#include <QPaintEngine>
#include <QPaintEvent>
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

QImage Video_Widget::Last_Frame() const
{
    return picture_ ? To_Image(*picture_) : QImage();
}

void Video_Widget::Show_Frame(const Picture_Ref& picture)
{
    picture_ = picture;
    ++frames_received_;
    update();
}

void Video_Widget::Clear_Frame()
{
    picture_.reset();
    update();
}

void Video_Widget::resizeEvent(QResizeEvent*)
{
    emit Picture_Pixels_Changed(Picture_Pixels());
}

// The window's buffer is an image for the raster back-ends (X11, Wayland,
// offscreen): the picture is converted straight into the widget's part of it.
// Only when the whole widget is repainted, unclipped by the window's edges,
// and in a pixel format the picture can write; false leaves it to drawImage.
bool Video_Widget::Paint_Into_Window_Buffer(QPainter& painter, const QRegion& region)
{
    QPaintEngine* engine = painter.paintEngine();
    QPaintDevice* device = engine ? engine->paintDevice() : nullptr;
    if (!device || device->devType() != QInternal::Image || !region.contains(rect()))
        return false;
    auto* buffer = static_cast<QImage*>(device);
    if (buffer->depth() != 32)
        return false;
    const QTransform& to_device = painter.deviceTransform();
    if (to_device.type() > QTransform::TxScale)
        return false;
    // The size the pipeline scales to, so that a frame is converted one to one
    // even where a fractional scale factor rounds the widget's edges.
    const QRect area(to_device.map(QPointF(0, 0)).toPoint(), Picture_Pixels());
    if (area.isEmpty() || !buffer->rect().contains(area))
        return false;
    // A view over the widget's rows of the buffer, not a copy.
    QImage view(buffer->scanLine(area.y()) + area.x() * 4, area.width(), area.height(), buffer->bytesPerLine(),
                buffer->format());
    return picture_->Draw_Into(view);
}

void Video_Widget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (!picture_) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    if (Paint_Into_Window_Buffer(painter, event->region()))
        return;
    QImage image(Picture_Pixels(), QImage::Format_RGB32);
    if (!picture_->Draw_Into(image))
        image.fill(Qt::black);
    painter.drawImage(rect(), image);
}

} // namespace Orvane
