#pragma once

#include <QString>

namespace Orvane {

// True when path names a regular file (a link is followed). A named pipe, a
// device, a socket or a folder is not one: opening it may wait for ever on
// a writer or a device, so media readers refuse it before opening it.
bool Is_Regular_File(const QString& path);

} // namespace Orvane
