#include "ui/frm_rien.h"

#include "ui/window_shell.h"

#include <QKeyEvent>

namespace Orvane {

namespace {
constexpr QSize Window_Size(2, 2);
}

Frm_Rien::Frm_Rien(Key_Dispatcher dispatcher, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::Tool),
      dispatcher_(std::move(dispatcher))
{
    setObjectName(QStringLiteral("Frm_Rien"));
    setWindowTitle(QStringLiteral("Orvane"));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_TranslucentBackground);
    setFixedSize(Window_Size);
    // An empty mask would mean "no mask" to the toolkit; a mask beside the
    // window is a real outline that leaves nothing of it to draw.
    setMask(QRegion(QRect(QPoint(Window_Size.width() + 1, Window_Size.height() + 1), QSize(1, 1))));
}

void Frm_Rien::keyPressEvent(QKeyEvent* event)
{
    if (dispatcher_)
        dispatcher_(Key_Press_Code(*event));
}

void Frm_Rien::paintEvent(QPaintEvent*)
{
    // Nothing: the surface stays transparent.
}

} // namespace Orvane
