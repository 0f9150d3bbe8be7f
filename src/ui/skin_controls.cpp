#include "ui/skin_controls.h"

#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_palette.h"

#include <QGraphicsOpacityEffect>

namespace Orvane {

void Give_Press_Look(Picture_Button* button)
{
    QObject::connect(button, &Picture_Button::Mouse_Down, button,
                     [button] { button->Set_Top(button->Resting_Top() + 1); });
    QObject::connect(button, &Picture_Button::Mouse_Up, button,
                     [button] { button->Set_Top(button->Resting_Top()); });
}

Picture_Button* Make_Picture_Button(QWidget* parent, const QString& skin_name, const QString& object_name,
                                    const QRect& place)
{
    auto* button = new Picture_Button(skin_name, parent);
    button->setObjectName(object_name);
    button->Place(place);
    button->setCursor(Qt::PointingHandCursor);
    Give_Press_Look(button);
    return button;
}

Skin_Label* Make_Label(QWidget* parent, const QString& object_name, const QRect& place, int pixel_size,
                       const QColor& color, bool bold)
{
    auto* label = new Skin_Label(QString(), parent);
    label->setObjectName(object_name);
    label->setGeometry(place);
    label->setFont(Skin_Palette::Label_Font(pixel_size, bold));
    label->Set_Colors(color);
    return label;
}

Captioned_Button Make_Captioned_Button(QWidget* parent, const QString& skin_name, const QString& picture_name,
                                       const QString& caption_name, QPoint picture_at, int caption_width)
{
    Captioned_Button made;
    made.picture = Make_Picture_Button(parent, skin_name, picture_name, QRect(picture_at, QSize(28, 24)));
    made.caption = Make_Label(parent, caption_name,
                              QRect(picture_at.x() + 32, picture_at.y() + 3, caption_width, 18), 12,
                              Skin_Palette::Panel_Text);
    made.caption->Set_Clickable(true);
    made.caption->Set_Button_Role(true);
    made.caption->Set_Colors(Skin_Palette::Panel_Text, Skin_Palette::Panel_Hover);
    return made;
}

void Set_Usable(Picture_Button* picture, bool usable)
{
    picture->setEnabled(usable);
    if (usable) {
        picture->setGraphicsEffect(nullptr);
    } else if (!picture->graphicsEffect()) {
        auto* faded = new QGraphicsOpacityEffect(picture);
        faded->setOpacity(0.35);
        picture->setGraphicsEffect(faded);
    }
}

void Set_Usable(const Captioned_Button& button, bool usable)
{
    Set_Usable(button.picture, usable);
    button.caption->setEnabled(usable);
    button.caption->Set_Colors(usable ? Skin_Palette::Panel_Text : Skin_Palette::Panel_Dim,
                               usable ? Skin_Palette::Panel_Hover : QColor());
}

} // namespace Orvane

#include <QAbstractItemView>
#include <QPainter>
#include <QScrollBar>

namespace Orvane {

void Paint_Rule(QPainter& painter, int y, int left, int right)
{
    painter.setPen(QColor(0, 0, 0, 170));
    painter.drawLine(QPointF(left, y + 0.5), QPointF(right, y + 0.5));
    painter.setPen(QColor(255, 255, 255, 20));
    painter.drawLine(QPointF(left, y + 1.5), QPointF(right, y + 1.5));
}

void Style_Display_List(QAbstractItemView* list)
{
    list->setFrameShape(QFrame::NoFrame);
    list->setAttribute(Qt::WA_TranslucentBackground);
    list->viewport()->setAutoFillBackground(false);
    list->setFont(Skin_Palette::Label_Font(12));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    const QColor accent = Skin_Palette::Accent;
    list->setStyleSheet(
        QStringLiteral(
            "QAbstractItemView { background: transparent; border: none; color: %1;"
            "  selection-background-color: rgba(%2, %3, %4, 60); selection-color: %5; outline: 0; }"
            "QAbstractItemView::item { padding: 2px 6px; border-radius: 4px; }"
            "QAbstractItemView::item:selected { background: rgba(%2, %3, %4, 60); color: %5; }"
            "QScrollBar:vertical { background: rgba(0, 0, 0, 90); width: 8px; margin: 2px 0 2px 0;"
            "  border-radius: 4px; }"
            "QScrollBar::handle:vertical { background: rgba(%2, %3, %4, 150); min-height: 24px;"
            "  border-radius: 4px; }"
            "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }"
            "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }")
            .arg(Skin_Palette::Display_Text.name())
            .arg(accent.red())
            .arg(accent.green())
            .arg(accent.blue())
            .arg(Skin_Palette::Panel_Hover.name()));
}

} // namespace Orvane
