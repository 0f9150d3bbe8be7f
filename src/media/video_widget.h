#pragma once

#include <QImage>
#include <QWidget>

namespace Orvane {

// The picture of the open media: the last frame received, scaled to the
// widget's geometry. Frames arrive on the GUI thread (see Frame_Mailbox).
class Video_Widget : public QWidget {
    Q_OBJECT
public:
    explicit Video_Widget(QWidget* parent = nullptr);

    bool Has_Frame() const { return !frame_.isNull(); }
    const QImage& Last_Frame() const { return frame_; }

public slots:
    void Show_Frame(const QImage& frame);
    void Clear_Frame();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage frame_;
};

} // namespace Orvane
