#include "config/config_form.h"

#include "base/reader_error.h"
#include "config/subtitle_color.h"
#include "language/text_table.h"
#include "ui/cdlg_ex.h"

namespace Orvane {

namespace {

// What the folder dialog starts from, kept as the configuration window
// always set it.
const QString Folder_Dialog_Start = QStringLiteral("4096");

} // namespace

Config_Form Load_Config_Form(const Settings& settings)
{
    Config_Form form;
    form.Font_Name = settings.Subtitle_Font_Name;
    form.Font_Size = settings.Subtitle_Font_Size;
    form.Bold = settings.Subtitle_Font_Bold;
    form.Italic = settings.Subtitle_Font_Italic;
    try {
        form.Color = Subtitle_Color_Number(settings.Subtitle_Color);
    } catch (const Reader_Error&) {
        form.Color = 0xffffff;
    }
    form.Transparent = settings.Subtitle_Transparent;
    form.Repeat = settings.Playlist_Repeat;
    form.Save = settings.Save_Settings;
    form.CD1 = settings.CD1_Drive;
    form.CD2 = settings.CD2_Drive;
    form.Chosen_Language = settings.Language_Name;
    return form;
}

int16_t Style_Text_Number(bool bold, bool italic)
{
    int16_t number = 0;
    if (bold)
        number = 901;
    if (italic)
        number = 902;
    if (bold && italic)
        number = 903;
    if (!bold && !italic)
        number = 904;
    return number;
}

QString Drive_From_Folder(const QString& folder)
{
    return folder.endsWith(u'/') ? folder.chopped(1) : folder;
}

void Choose_Language(Config_Form& form, const QString& language)
{
    if (language != form.Chosen_Language)
        form.Language_Changed = true;
    form.Chosen_Language = language;
}

void Choose_Font(CdlgEx& dialog, QWidget* owner, const Settings& settings, Config_Form& form)
{
    dialog.Set_hOwner(owner);
    dialog.Set_FontName(settings.Subtitle_Font_Name);
    dialog.Set_FontSize(settings.Subtitle_Font_Size);
    dialog.Set_Bold(settings.Subtitle_Font_Bold);
    dialog.Set_Italic(settings.Subtitle_Font_Italic);
    dialog.ShowFont();
    form.Font_Name = dialog.FontName();
    form.Font_Size = dialog.FontSize();
    form.Bold = dialog.Bold();
    form.Italic = dialog.Italic();
}

void Choose_Color(CdlgEx& dialog, QWidget* owner, Config_Form& form)
{
    dialog.Set_hOwner(owner);
    dialog.Set_RGBResult(uint32_t(form.Color));
    dialog.ShowColor();
    form.Color = int32_t(dialog.RGBResult() & 0xffffffu);
}

void Choose_Drive(CdlgEx& dialog, QWidget* owner, const Text_Table& texts, int which, Config_Form& form)
{
    dialog.Set_hOwner(owner);
    dialog.Set_DialogPrompt(texts.Get_Text(Config_Window_Text::Drive_Prompt));
    dialog.Set_InitDir(Folder_Dialog_Start);
    dialog.ShowFolder();
    (which == 1 ? form.CD1 : form.CD2) = Drive_From_Folder(dialog.InitDir());
}

void Confirm_Config_Form(const Config_Form& form, Settings& settings, bool subtitles_shown,
                         const Config_Confirm_Actions& actions)
{
    settings.Subtitle_Color = form.Color;
    settings.Subtitle_Font_Name = form.Font_Name;
    settings.Subtitle_Font_Size = int16_t(form.Font_Size);
    settings.Subtitle_Font_Bold = form.Bold;
    settings.Subtitle_Font_Italic = form.Italic;
    settings.Subtitle_Transparent = form.Transparent;
    settings.Playlist_Repeat = form.Repeat;
    settings.CD1_Drive = form.CD1;
    settings.CD2_Drive = form.CD2;
    settings.Save_Settings = form.Save;
    const QString previous_language = settings.Language_Name;
    settings.Language_Name = form.Chosen_Language;
    if (form.Language_Changed && actions.Reload_Language && !actions.Reload_Language(form.Chosen_Language))
        settings.Language_Name = previous_language;
    if (subtitles_shown && actions.Rebuild_Subtitles)
        actions.Rebuild_Subtitles();
    if (settings.Save_Settings && actions.Write_Config)
        actions.Write_Config();
}

} // namespace Orvane
