#include "ui/option_pair.h"

#include "ui/skin_accessibility.h"
#include "ui/skin_picture.h"

#include <QMouseEvent>

namespace Orvane {

Option_Pair::Option_Pair(const QString& name, QWidget* parent)
    : QWidget(parent), box_(new Skin_Picture(QStringLiteral("option_box"), this)),
      mark_(new Skin_Picture(QStringLiteral("option_mark"), this))
{
    Ensure_Skin_Accessibility();
    setObjectName(name);
    box_->setObjectName(name + QStringLiteral("_0"));
    mark_->setObjectName(name + QStringLiteral("_1"));
    resize(box_->size());
    mark_->hide();
    setCursor(Qt::PointingHandCursor);
}

bool Option_Pair::Is_On() const
{
    return !mark_->isHidden();
}

void Option_Pair::Set_On(bool on)
{
    mark_->setVisible(on);
}

void Option_Pair::Toggle()
{
    Set_On(!Is_On());
    emit Toggled(Is_On());
}

void Option_Pair::mousePressEvent(QMouseEvent* event)
{
    event->accept();  // the release comes here, not to the window's drag
}

void Option_Pair::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Toggle();
}

} // namespace Orvane
