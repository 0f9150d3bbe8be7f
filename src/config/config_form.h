#pragma once

#include "config/settings.h"

#include <QString>
#include <cstdint>
#include <functional>

class QWidget;

namespace Orvane {

class CdlgEx;
class Text_Table;

// What the configuration window's controls hold: copies of the settings
// taken when it opens, changed by the user, and copied back only by OK.
struct Config_Form {
    QString Font_Name;
    int Font_Size = 0;
    bool Bold = false;   // the working copies the sample is drawn with
    bool Italic = false;
    int32_t Color = 0xffffff;  // 0x00BBGGRR
    bool Transparent = false;
    bool Repeat = false;
    bool Save = false;
    QString CD1;
    QString CD2;
    QString Chosen_Language;
    bool Language_Changed = false;
};

namespace Config_Window_Text {
constexpr int16_t Drive_Prompt = 317;
constexpr int16_t Sample = 505;
constexpr int16_t Font_Hint = 506;
constexpr int16_t Color_Hint = 507;
constexpr int16_t No_Drive = 607;
}

// The form as the window loads it from the settings. A colour that is no
// number starts as white: the subtitle window reports it where it is used.
Config_Form Load_Config_Form(const Settings& settings);

// The text number of a font style: 901 bold, then 902 italic, then 903 both,
// and 904 neither; the later rule wins.
int16_t Style_Text_Number(bool bold, bool italic);

// A chosen folder loses one trailing "/" (a mount point "/media/cdrom/" is
// kept as "/media/cdrom").
QString Drive_From_Folder(const QString& folder);

// Picking a language in the list.
void Choose_Language(Config_Form& form, const QString& language);

// The dialogs of the window, through the one common-dialog object with the
// window as owner. Each leaves the form as the dialog object's properties
// leave it: a cancelled font dialog gives back the settings' font it was
// preset with, a cancelled folder dialog the text it was preset with.
void Choose_Font(CdlgEx& dialog, QWidget* owner, const Settings& settings, Config_Form& form);
void Choose_Color(CdlgEx& dialog, QWidget* owner, Config_Form& form);
// which is 1 or 2.
void Choose_Drive(CdlgEx& dialog, QWidget* owner, const Text_Table& texts, int which, Config_Form& form);

// What confirming reaches beyond the settings record.
struct Config_Confirm_Actions {
    // Reloads the texts in the language and puts them on every window;
    // false when the language file refused (it has said why).
    std::function<bool(const QString& language)> Reload_Language;
    // Rebuilds the shown subtitle window from the new font settings.
    std::function<void()> Rebuild_Subtitles;
    // Rewrites orvan.ini.
    std::function<void()> Write_Config;
};

// OK: copies every field into the settings, reloads the language when it
// changed (a language that cannot be loaded keeps the old one), rebuilds the
// subtitle window when it is shown, and writes the file when the save
// option is now on.
void Confirm_Config_Form(const Config_Form& form, Settings& settings, bool subtitles_shown,
                         const Config_Confirm_Actions& actions);

} // namespace Orvane
