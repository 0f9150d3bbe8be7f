#pragma once

#include <QPoint>
#include <QRegion>
#include <QSize>

class QKeyEvent;
class QWidget;

namespace Orvane {

// The chrome shared by every skinned window: no system frame, a rounded
// outline and moving by dragging the window's own surface.

// The rounded-rectangle area of a window of the given size whose corners are
// rounded by an ellipse of corner x corner pixels (clamped to the size).
QRegion Rounded_Region(QSize size, int corner);

// Cuts the window to the rounded rectangle of its current size. The shape is
// not updated when the window is resized later; a window that wants a new
// outline after a resize calls this again.
void Shape_Window(QWidget* form, int corner);

// Lets the user move the window with the mouse button that is down, as if its
// title bar had been pressed: the system's own move when it offers one,
// otherwise the window follows the mouse until the button is released.
void Drag_Window(QWidget* form);

// Shows a window with its top left corner at a place of the screen. Some
// window managers place a window they map themselves and only honour a move
// asked once it is mapped: the place is asked again then.
void Show_At(QWidget* form, QPoint top_left);

// The character code every window hands to the player's keyboard dispatcher:
// the first character of the key's text, 0 for a key without text.
int Key_Press_Code(const QKeyEvent& event);

// Shift, Control and the like alone: nothing to hand on.
bool Is_Modifier_Only(int key);

} // namespace Orvane
