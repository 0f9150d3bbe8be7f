#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

namespace Orvane {

// What the open and save dialogs are asked to show.
struct File_Dialog_Request {
    QWidget* owner = nullptr;
    QString title;
    QString initial_folder;     // empty: the process's current directory
    QString default_suffix;     // without the dot
    QStringList name_filters;   // "Description (*.a *.b)"
    int selected_filter = 0;    // index into name_filters
    bool multiple = false;      // open: several files may be chosen
    bool confirm_overwrite = false;  // save: ask before replacing a file
};

// A font as the font dialog shows and returns it.
struct Font_Choice {
    QString name;
    int size = 0;  // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike_out = false;
};

// The standard dialogs behind CdlgEx. Each returns nothing when the user
// cancels (or the dialog cannot be shown).
class Dialog_Provider {
public:
    virtual ~Dialog_Provider() = default;
    // Absolute paths of the chosen files, at least one.
    virtual std::optional<QStringList> Open_Files(const File_Dialog_Request& request) = 0;
    // The absolute path to save to.
    virtual std::optional<QString> Save_File(const File_Dialog_Request& request) = 0;
    virtual std::optional<QColor> Choose_Color(QWidget* owner, const QColor& initial) = 0;
    virtual std::optional<Font_Choice> Choose_Font(QWidget* owner, const Font_Choice& initial) = 0;
    virtual std::optional<QString> Choose_Folder(QWidget* owner, const QString& prompt,
                                                 const QString& initial_folder) = 0;
};

} // namespace Orvane
