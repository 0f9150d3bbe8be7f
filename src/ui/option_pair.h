#pragma once

#include <QWidget>

namespace Orvane {

class Skin_Picture;

// An option of the skin: a box (item 0) with its mark (item 1) over it; the
// option is on while the mark is visible. A release of the mouse on the box
// shows the mark, on the mark hides it.
class Option_Pair : public QWidget {
    Q_OBJECT
public:
    // The two pictures are named name + "_0" and name + "_1".
    Option_Pair(const QString& name, QWidget* parent = nullptr);

    bool Is_On() const;
    void Set_On(bool on);
    Skin_Picture* Box() const { return box_; }
    Skin_Picture* Mark() const { return mark_; }

signals:
    void Toggled(bool on);

public slots:
    // What a release on the option does.
    void Toggle();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Skin_Picture* box_;
    Skin_Picture* mark_;
};

} // namespace Orvane
