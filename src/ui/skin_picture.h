#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

namespace Orvane {

// Renders a skin picture at a size, for the screen's pixel ratio. An empty
// pixmap when the picture cannot be read.
QPixmap Render_Skin_Picture(const QString& name, QSize size, qreal pixel_ratio);

// The size the picture was drawn at; empty when it cannot be read.
QSize Skin_Picture_Size(const QString& name);

// A skin picture (Img_ control): draws one SVG of the skin scaled to the
// widget. Its initial size is the picture's own size. Mouse presses are not
// taken, so they reach the window beneath (which drags itself).
class Skin_Picture : public QWidget {
    Q_OBJECT
public:
    explicit Skin_Picture(const QString& skin_name, QWidget* parent = nullptr);

    void Set_Picture(const QString& skin_name);
    const QString& Picture() const { return skin_name_; }

    // A picture that shows an amount (the volume gauge) tells assistive
    // technologies its level, 0 to maximum; a maximum of 0 is a plain picture.
    void Set_Level(int level, int maximum);
    int Level() const { return level_; }
    int Level_Maximum() const { return level_maximum_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    // The pixmap painted, rendered on demand for the current size.
    const QPixmap& Rendered();

private:
    QString skin_name_;
    QPixmap rendered_;
    QSize rendered_size_;  // the widget size the pixmap was rendered for
    int level_ = 0;
    int level_maximum_ = 0;
};

} // namespace Orvane
