#pragma once

#include <QString>

namespace Orvane {

// The file name of a path without its extension: the text after the last "/"
// up to the first "." that follows it (the whole rest when there is none).
// The search for "/" starts at the second character, so a path without any
// folder loses its first character, exactly like the player always did:
// dialog paths are absolute and never meet that case.
QString Name_From_Path(const QString& path);

} // namespace Orvane
