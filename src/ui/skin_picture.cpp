#include "ui/skin_picture.h"

#include "ui/skin_accessibility.h"
#include "ui/skin_resources.h"

#include <QAccessible>

#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace Orvane {

QPixmap Render_Skin_Picture(const QString& name, QSize size, qreal pixel_ratio)
{
    QSvgRenderer renderer(Skin_Path(name));
    if (!renderer.isValid() || size.isEmpty())
        return QPixmap();
    const QSize device_size(int(std::ceil(size.width() * pixel_ratio)),
                            int(std::ceil(size.height() * pixel_ratio)));
    QPixmap pixmap(device_size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(0, 0), device_size));
    painter.end();
    pixmap.setDevicePixelRatio(pixel_ratio);
    return pixmap;
}

QSize Skin_Picture_Size(const QString& name)
{
    QSvgRenderer renderer(Skin_Path(name));
    return renderer.isValid() ? renderer.defaultSize() : QSize();
}

Skin_Picture::Skin_Picture(const QString& skin_name, QWidget* parent)
    : QWidget(parent)
{
    Ensure_Skin_Accessibility();
    Set_Picture(skin_name);
    const QSize own_size = Skin_Picture_Size(skin_name);
    if (!own_size.isEmpty())
        resize(own_size);
}

void Skin_Picture::Set_Level(int level, int maximum)
{
    const bool changed = level != level_ || maximum != level_maximum_;
    level_ = level;
    level_maximum_ = maximum;
    if (changed && maximum > 0 && QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, level);
        QAccessible::updateAccessibility(&event);
    }
}

void Skin_Picture::Set_Picture(const QString& skin_name)
{
    skin_name_ = skin_name;
    rendered_ = QPixmap();
    update();
}

const QPixmap& Skin_Picture::Rendered()
{
    const qreal ratio = devicePixelRatioF();
    if (rendered_.isNull() || rendered_size_ != size()
        || !qFuzzyCompare(rendered_.devicePixelRatio(), ratio)) {
        rendered_ = Render_Skin_Picture(skin_name_, size(), ratio);
        rendered_size_ = size();
    }
    return rendered_;
}

void Skin_Picture::paintEvent(QPaintEvent*)
{
    const QPixmap& pixmap = Rendered();
    if (pixmap.isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(0, 0, pixmap);
}

} // namespace Orvane
