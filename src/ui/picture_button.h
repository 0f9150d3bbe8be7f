#pragma once

#include "ui/skin_picture.h"

namespace Orvane {

// A skin picture used as a button. It reports the mouse and leaves the press
// look to its owner: the owner sinks it by moving its top one pixel below
// the resting top, so that its own rules decide when a button sinks.
class Picture_Button : public Skin_Picture {
    Q_OBJECT
public:
    explicit Picture_Button(const QString& skin_name, QWidget* parent = nullptr);

    // Puts the button at its resting place; the rectangle's top is the
    // resting top from then on.
    void Place(const QRect& resting_place);
    int Resting_Top() const { return resting_top_; }
    void Set_Top(int top) { move(x(), top); }
    int Top() const { return y(); }
    bool Is_Hovered() const { return hovered_; }

    // What a click of the left button emits (down, up, clicked), without a
    // mouse: assistive technologies press the button through it.
    void Press();

signals:
    void Mouse_Down(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void Mouse_Up(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    // A press and a release of the same button, released over the button.
    void Clicked(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    const QPixmap& Highlighted();

    int resting_top_ = 0;
    bool hovered_ = false;
    Qt::MouseButtons pressed_ = Qt::NoButton;
    QPixmap highlighted_;
    qint64 highlighted_key_ = 0;
};

} // namespace Orvane
