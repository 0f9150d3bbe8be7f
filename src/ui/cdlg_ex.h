#pragma once

#include "ui/dialog_provider.h"

#include <QString>
#include <QStringList>
#include <cstdint>

class QWidget;

namespace Orvane {

// The one common-dialog object all windows share: a caller sets properties,
// calls a Show method (or writes Action), then reads the results. A cancel
// never raises anything; it sets CancelError, which only a caller clears.
//
// Open and save results are the platform's buffers:
//  - ShowOpen leaves them as returned, padded with NUL characters to the
//    buffer size (2048). With one file chosen, FileName is its full path and
//    FileTitle its name. With the multiple-selection flag (0x200) and several
//    files chosen, FileName is the folder, a NUL, then each file name followed
//    by a NUL, then one more NUL ("/films\0a.avi\0b.avi\0\0"), and FileTitle
//    is empty. Selected_Files() turns either form into full paths.
//  - ShowSave cuts both at their first NUL.
// A chosen file makes its folder the process's current directory (unless the
// flags hold 0x8, "do not change the directory"), so relative names resolve
// against the folder the user just looked at.
class CdlgEx {
public:
    static constexpr int File_Buffer_Size = 2048;
    static constexpr int File_Title_Capacity = 255;  // what the platform may fill of FileTitle
    static constexpr int32_t Allow_Multi_Select = 0x200;
    static constexpr int32_t No_Change_Dir = 0x8;
    static constexpr int32_t Overwrite_Prompt = 0x2;
    static constexpr int32_t Hook_And_Template_Bits = 0x20 | 0x40 | 0x80;

    explicit CdlgEx(Dialog_Provider& provider) : provider_(provider) {}

    // 1 ShowOpen, 2 ShowSave, 3 ShowColor, 4 ShowFont, 8 ShowFolder; any
    // other value does nothing.
    void Set_Action(int32_t action);

    void ShowOpen();
    void ShowSave();
    void ShowColor();
    void ShowFont();
    void ShowFolder();

    bool CancelError() const { return cancel_error_; }
    void Set_CancelError(bool value) { cancel_error_ = value; }
    QWidget* hOwner() const { return owner_; }
    void Set_hOwner(QWidget* owner) { owner_ = owner; }
    int32_t flags() const { return flags_; }
    void Set_flags(int32_t value) { flags_ = value; }
    QString DialogTitle() const { return dialog_title_; }
    void Set_DialogTitle(const QString& value) { dialog_title_ = value; }
    QString DialogPrompt() const { return dialog_prompt_; }
    void Set_DialogPrompt(const QString& value) { dialog_prompt_ = value; }
    QString AppName() const { return app_name_; }
    void Set_AppName(const QString& value) { app_name_ = value; }
    int32_t hIcon() const { return icon_; }
    void Set_hIcon(int32_t value) { icon_ = value; }
    bool Bold() const { return font_.bold; }
    void Set_Bold(bool value) { font_.bold = value; }
    bool Italic() const { return font_.italic; }
    void Set_Italic(bool value) { font_.italic = value; }
    bool StrikeThru() const { return font_.strike_out; }
    void Set_StrikeThru(bool value) { font_.strike_out = value; }
    bool Underline() const { return font_.underline; }
    void Set_Underline(bool value) { font_.underline = value; }
    QString FontName() const { return font_.name; }
    void Set_FontName(const QString& value) { font_.name = value; }
    int32_t FontSize() const { return font_.size; }
    void Set_FontSize(int32_t value) { font_.size = value; }
    QString DefaultExt() const { return default_ext_; }
    void Set_DefaultExt(const QString& value) { default_ext_ = value; }
    QString FileName() const { return file_name_; }
    void Set_FileName(const QString& value) { file_name_ = value; }
    QString FileTitle() const { return file_title_; }
    void Set_FileTitle(const QString& value) { file_title_ = value; }
    QString Filter() const { return filter_; }
    void Set_Filter(const QString& value) { filter_ = value; }
    int32_t FilterIndex() const { return filter_index_; }
    void Set_FilterIndex(int32_t value) { filter_index_ = value; }
    QString InitDir() const { return init_dir_; }
    void Set_InitDir(const QString& value) { init_dir_ = value; }
    // Reading sets the size to 32 and returns it, whatever was written.
    int32_t IconSize();
    void Set_IconSize(int32_t value) { icon_size_ = value; }
    uint32_t RGBResult() const { return rgb_result_; }  // 0x00BBGGRR
    void Set_RGBResult(uint32_t value) { rgb_result_ = value; }

    // The filter as the platform receives it: every "|" a NUL, then two NULs.
    QString Filter_Record() const;
    // The flags the open and save dialogs receive: hook and template bits cleared.
    int32_t File_Record_Flags() const { return flags_ & ~Hook_And_Template_Bits; }
    // A filter record ("description NUL patterns NUL ... NUL NUL") as Qt name
    // filters "description (pattern pattern)".
    static QStringList Name_Filters(const QString& filter_record);
    // The full paths held in an open dialog's FileName (either form above).
    static QStringList Selected_Files(const QString& file_name);

private:
    File_Dialog_Request File_Request() const;
    void Change_Directory_To(const QString& file_path) const;

    Dialog_Provider& provider_;
    bool cancel_error_ = false;
    QWidget* owner_ = nullptr;
    int32_t flags_ = 0;
    QString dialog_title_;
    QString dialog_prompt_;
    QString app_name_;
    int32_t icon_ = 0;
    Font_Choice font_;
    QString default_ext_;
    QString file_name_;
    QString file_title_;
    QString filter_;
    int32_t filter_index_ = 0;
    QString init_dir_;
    int32_t icon_size_ = 0;
    uint32_t rgb_result_ = 0;
};

} // namespace Orvane
