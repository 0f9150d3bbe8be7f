#pragma once

namespace Orvane {

// Makes the skin's own controls known to assistive technologies (AT-SPI on
// Linux): picture buttons and labels used as buttons are push buttons whose
// press action is a click, the progress track is a slider, a level picture
// is a level bar. Every skin widget calls it when it is built; the first
// call registers the interfaces with Qt, later calls do nothing.
void Ensure_Skin_Accessibility();

} // namespace Orvane
