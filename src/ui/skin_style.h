#pragma once

#include <QPalette>

namespace Orvane {

// The palette of everything the skin does not draw itself: message boxes,
// the file, colour and font dialogs, menus and lists. Graphite surfaces,
// light text and the skin's accent, like the skinned windows.
QPalette Skin_Dialog_Palette();

// Sets the toolkit's style and the palette above for the whole application.
// Called once at start-up, before the first window is built.
void Apply_Skin_Style();

} // namespace Orvane
