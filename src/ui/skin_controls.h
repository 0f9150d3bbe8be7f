#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>

class QWidget;

namespace Orvane {

class Picture_Button;
class Skin_Label;

// A picture button with the label beside it that names it; both answer a
// click, as the label buttons (Lbl_Btn_) of the skin always did.
struct Captioned_Button {
    Picture_Button* picture = nullptr;
    Skin_Label* caption = nullptr;
};

// Sinks the picture by one pixel while a mouse button holds it down.
void Give_Press_Look(Picture_Button* button);

Picture_Button* Make_Picture_Button(QWidget* parent, const QString& skin_name, const QString& object_name,
                                    const QRect& place);

// A one-line text over the skin; clickable ones light up under the mouse.
Skin_Label* Make_Label(QWidget* parent, const QString& object_name, const QRect& place, int pixel_size,
                       const QColor& color, bool bold = false);

// The picture at picture_at, its caption just right of it, caption_width wide.
Captioned_Button Make_Captioned_Button(QWidget* parent, const QString& skin_name, const QString& picture_name,
                                       const QString& caption_name, QPoint picture_at, int caption_width);

// A button that cannot act now is drawn faded and takes no clicks.
void Set_Usable(Picture_Button* picture, bool usable);
void Set_Usable(const Captioned_Button& button, bool usable);

} // namespace Orvane

class QPainter;
class QAbstractItemView;

namespace Orvane {

// An engraved line across the display, between two groups of information.
void Paint_Rule(QPainter& painter, int y, int left, int right);

// Gives a list the look of the skin's display: no frame, light text on the
// dark glass, a thin accent scroll bar.
void Style_Display_List(QAbstractItemView* list);

} // namespace Orvane
