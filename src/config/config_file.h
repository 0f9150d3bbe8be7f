#pragma once

#include "config/settings.h"

#include <QString>

namespace Orvane {

class Text_Table;

// folder + "/orvan.ini".
QString Config_Path(const QString& folder);

// Reads the 32-line configuration file of folder into settings, loading the
// language file of the same folder into texts when the language line is
// reached. False on any refusal, after one message box (none when the
// language file refused: it reports its own failure). There are no
// defaults: fields are filled as far as the file was read.
bool Read_Config(const QString& folder, Settings& settings, Text_Table& texts);

// The same with the configuration file and the language file's folder
// given apart (the command-line check reads any file).
bool Read_Config_File(const QString& config_path, const QString& language_folder,
                      Settings& settings, Text_Table& texts);

// Rewrites folder's configuration file, line 28 from the volume level in
// use. When writing fails the old file stays whole, one box names the file
// and the system's reason, and the result is false.
bool Write_Config(const QString& folder, const Settings& settings, int volume_level);

} // namespace Orvane
