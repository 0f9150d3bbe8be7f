#pragma once

#include <QString>
#include <optional>

namespace Orvane {

// `orvane --check FILE [--language NAME]`: reads FILE with the program's own
// reader, chosen by its name, without opening any window, and prints what
// the reader understood ("OK" and the values) or "ERROR:" followed by the
// text of the message box it would have shown, line feeds printed " / ".
//   - "Lang.ini": the language file, for the language NAME (by default the
//     language of the configuration file the player would read);
//   - any other "*.ini": a configuration file, with the language file the
//     player would load;
//   - "*.sub", "*.orx", "*.m3u": subtitle and playlist files (check_media_files.h).
// Returns 0 when the file was accepted, 1 when it was refused, 2 when no
// check exists for such a file.
int Run_Check(const QString& file, const std::optional<QString>& language, const QString& program_name);

} // namespace Orvane
