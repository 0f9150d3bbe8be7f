#include "ui/window_shell.h"

#include <QTimer>

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace Orvane {

namespace {

// The inset of one pixel row inside a corner: how far the ellipse's edge lies
// from the window's side at the row's centre.
int Corner_Inset(int row_from_edge, double radius_x, double radius_y)
{
    const double dy = radius_y - (row_from_edge + 0.5);
    const double ratio = std::clamp(dy / radius_y, -1.0, 1.0);
    return int(std::lround(radius_x - radius_x * std::sqrt(1.0 - ratio * ratio)));
}

// Moves a window by hand while a mouse button stays down, for platforms whose
// window system offers no move of its own (or refuses it).
class Manual_Window_Drag : public QObject {
public:
    explicit Manual_Window_Drag(QWidget* window)
        : QObject(window), window_(window), start_cursor_(QCursor::pos()),
          start_window_(window->pos())
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove) {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->buttons() == Qt::NoButton) {
                Finish();
            } else if (window_) {
                const QPoint moved = mouse->globalPosition().toPoint() - start_cursor_;
                window_->move(start_window_ + moved);
                return true;
            }
        } else if (event->type() == QEvent::MouseButtonRelease) {
            Finish();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void Finish()
    {
        qApp->removeEventFilter(this);
        deleteLater();
    }

    QPointer<QWidget> window_;
    QPoint start_cursor_;
    QPoint start_window_;
};

} // namespace

QRegion Rounded_Region(QSize size, int corner)
{
    const int width = size.width();
    const int height = size.height();
    if (width <= 0 || height <= 0)
        return QRegion();
    const double radius_x = std::clamp(corner, 0, width) / 2.0;
    const double radius_y = std::clamp(corner, 0, height) / 2.0;
    const int corner_rows = int(std::ceil(radius_y));

    QRegion region(0, corner_rows, width, std::max(0, height - 2 * corner_rows));
    for (int row = 0; row < corner_rows && row < height; ++row) {
        const int inset = Corner_Inset(row, radius_x, radius_y);
        const int span = width - 2 * inset;
        if (span <= 0)
            continue;
        region += QRect(inset, row, span, 1);
        if (height - 1 - row != row)
            region += QRect(inset, height - 1 - row, span, 1);
    }
    return region;
}

void Shape_Window(QWidget* form, int corner)
{
    if (!form)
        return;
    form->setMask(Rounded_Region(form->size(), corner));
}

void Drag_Window(QWidget* form)
{
    if (!form)
        return;
    QWidget* window = form->window();
    if (QWindow* handle = window->windowHandle(); handle && handle->startSystemMove())
        return;
    new Manual_Window_Drag(window);
}

int Key_Press_Code(const QKeyEvent& event)
{
    const QString text = event.text();
    return text.isEmpty() ? 0 : int(text.at(0).unicode());
}

bool Is_Modifier_Only(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta
        || key == Qt::Key_AltGr || key == Qt::Key_CapsLock || key == Qt::Key_NumLock;
}

void Show_At(QWidget* form, QPoint top_left)
{
    form->move(top_left);
    form->show();
    QPointer<QWidget> shown = form;
    QTimer::singleShot(0, form, [shown, top_left] {
        if (shown && shown->pos() != top_left)
            shown->move(top_left);
    });
}

} // namespace Orvane
