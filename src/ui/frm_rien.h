#pragma once

#include <QWidget>
#include <functional>

namespace Orvane {

// Frm_Rien: an empty window that keeps the keyboard working when none of
// the skinned windows has the focus. Every key press goes unchanged to the
// player's keyboard dispatcher.
//
// It is shown (so it can hold the focus) but never seen: its outline lies
// wholly outside it, so the window system draws none of it, with or without
// a window manager; with a compositor its transparent surface hides it too.
class Frm_Rien : public QWidget {
    Q_OBJECT
public:
    using Key_Dispatcher = std::function<void(int key_code)>;

    explicit Frm_Rien(Key_Dispatcher dispatcher, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Key_Dispatcher dispatcher_;
};

} // namespace Orvane
