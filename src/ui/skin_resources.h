#pragma once

#include <QString>

namespace Orvane {

// The skin pictures are compiled into the user-interface library; a program
// registers them once before it shows a skinned window.
void Init_Skin_Resources();

// The resource path of a skin picture by its name without extension:
// "button_play" -> ":/skin/button_play.svg".
QString Skin_Path(const QString& name);

} // namespace Orvane
