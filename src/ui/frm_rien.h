#pragma once

#include <QWidget>
#include <functional>

namespace Orvane {

// Frm_Rien: an empty, tiny window that keeps the keyboard working when none
// of the skinned windows has the focus. Every key press goes unchanged to
// the player's keyboard dispatcher.
class Frm_Rien : public QWidget {
    Q_OBJECT
public:
    using Key_Dispatcher = std::function<void(int key_code)>;

    explicit Frm_Rien(Key_Dispatcher dispatcher, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Key_Dispatcher dispatcher_;
};

} // namespace Orvane
