#pragma once

#include <QColor>
#include <QLabel>

namespace Orvane {

// A one-line text over the skin (Lbl_ control). Text that does not fit ends
// in an ellipsis, unless the label wraps its words. A plain label lets mouse presses through to the window
// (which drags itself); a clickable one takes them and reports clicks.
class Skin_Label : public QLabel {
    Q_OBJECT
public:
    explicit Skin_Label(const QString& text = QString(), QWidget* parent = nullptr);

    void Set_Clickable(bool clickable);
    bool Is_Clickable() const { return clickable_; }
    // A clickable label that stands for a button ("Fermer", the playlist
    // window's captions) is announced as one; others are read as texts.
    // Set before the window is shown.
    void Set_Button_Role(bool button) { button_role_ = button; }
    bool Is_Button() const { return button_role_ && clickable_; }
    // What a click emits, without a mouse (for assistive technologies).
    void Press();
    void Set_Colors(const QColor& normal, const QColor& hovered = QColor());

signals:
    void Clicked();
    // The left button went down on a clickable label (before any click).
    void Left_Pressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    bool clickable_ = false;
    bool button_role_ = false;
    bool pressed_ = false;
    bool hovered_ = false;
    QColor normal_color_;
    QColor hovered_color_;
};

} // namespace Orvane
