#pragma once

#include "ui/video_picture.h"

#include <QWidget>

namespace Orvane {

// The picture of the open media: the last frame received, drawn over the
// widget's whole geometry. Frames arrive on the GUI thread (see Frame_Mailbox)
// already scaled to Picture_Pixels() by the pipeline but still in the
// decoder's pixel format: painting converts them straight into the window's
// buffer, the one copy on their way to the screen. A frame of another size
// (the one or two still on their way after a resize, or a paused picture) is
// scaled by that same conversion.
class Video_Widget : public QWidget {
    Q_OBJECT
public:
    explicit Video_Widget(QWidget* parent = nullptr);

    bool Has_Frame() const { return picture_ != nullptr; }
    // How many frames have arrived since the widget was made.
    quint64 Frames_Received() const { return frames_received_; }
    // The last frame at its own size (null when there is none).
    QImage Last_Frame() const;
    // The size frames should have, in device pixels.
    QSize Picture_Pixels() const;

public slots:
    void Show_Frame(const Picture_Ref& picture);
    void Clear_Frame();

signals:
    void Picture_Pixels_Changed(QSize pixels);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool Paint_Into_Window_Buffer(QPainter& painter, const QRegion& region);

    Picture_Ref picture_;
    quint64 frames_received_ = 0;
};

} // namespace Orvane
