#pragma once

#include <QByteArray>

namespace Orvane {

// Starts the program: the answers of the command line that show no window,
// or the player.
int Run_Application(int argc, char** argv);

// The skinned windows place themselves and the subtitle window stays above
// the others, which a Wayland compositor refuses to its clients; XWayland
// allows both. True when the X display should be chosen: both displays are
// there and the user chose no platform (QT_QPA_PLATFORM empty).
bool Prefer_X_Display(const QByteArray& qt_qpa_platform, const QByteArray& wayland_display,
                      const QByteArray& x_display);

} // namespace Orvane
