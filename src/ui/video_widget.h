#pragma once

#include <QImage>
#include <QWidget>

namespace Orvane {

// The picture of the open media: the last frame received, drawn over the
// widget's whole geometry. Frames arrive on the GUI thread (see Frame_Mailbox)
// already scaled to Picture_Pixels() by the pipeline, so painting is a plain
// copy; a frame of another size (the one or two still on their way after a
// resize, or a paused picture) is scaled here.
class Video_Widget : public QWidget {
    Q_OBJECT
public:
    explicit Video_Widget(QWidget* parent = nullptr);

    bool Has_Frame() const { return !frame_.isNull(); }
    const QImage& Last_Frame() const { return frame_; }
    // The size frames should have, in device pixels.
    QSize Picture_Pixels() const;

public slots:
    void Show_Frame(const QImage& frame);
    void Clear_Frame();

signals:
    void Picture_Pixels_Changed(QSize pixels);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QImage frame_;
};

} // namespace Orvane
