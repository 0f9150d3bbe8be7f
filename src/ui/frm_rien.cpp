#include "ui/frm_rien.h"

#include "ui/window_shell.h"

#include <QKeyEvent>

namespace Orvane {

Frm_Rien::Frm_Rien(Key_Dispatcher dispatcher, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::Tool),
      dispatcher_(std::move(dispatcher))
{
    setObjectName(QStringLiteral("Frm_Rien"));
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(2, 2);
}

void Frm_Rien::keyPressEvent(QKeyEvent* event)
{
    if (dispatcher_)
        dispatcher_(Key_Press_Code(*event));
}

} // namespace Orvane
