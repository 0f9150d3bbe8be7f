#include "ui/dialog_qt_provider.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>

namespace Orvane {

namespace {

void Prepare(QFileDialog& dialog, const File_Dialog_Request& request)
{
    dialog.setWindowTitle(request.title);
    // Without a folder of its own the dialog opens in the process's current
    // directory, which the last dialog moved to the folder of its choice
    // (the toolkit would remember a folder of its own instead).
    dialog.setDirectory(request.initial_folder.isEmpty() ? QDir::currentPath() : request.initial_folder);
    dialog.setDefaultSuffix(request.default_suffix);
    // The descriptions already name their patterns; Qt needs them once more
    // in brackets, which stay hidden.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!request.name_filters.isEmpty()) {
        dialog.setNameFilters(request.name_filters);
        if (request.selected_filter >= 0 && request.selected_filter < request.name_filters.size())
            dialog.selectNameFilter(request.name_filters[request.selected_filter]);
    }
}

} // namespace

std::optional<QStringList> Qt_Dialog_Provider::Open_Files(const File_Dialog_Request& request)
{
    QFileDialog dialog(request.owner);
    Prepare(dialog, request);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles();
}

std::optional<QString> Qt_Dialog_Provider::Save_File(const File_Dialog_Request& request)
{
    QFileDialog dialog(request.owner);
    Prepare(dialog, request);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.confirm_overwrite);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

std::optional<QColor> Qt_Dialog_Provider::Choose_Color(QWidget* owner, const QColor& initial)
{
    const QColor chosen = QColorDialog::getColor(initial, owner);
    if (!chosen.isValid())
        return std::nullopt;
    return chosen;
}

std::optional<Font_Choice> Qt_Dialog_Provider::Choose_Font(QWidget* owner, const Font_Choice& initial)
{
    QFont font(initial.name);
    if (initial.size > 0)
        font.setPointSize(initial.size);
    font.setBold(initial.bold);
    font.setItalic(initial.italic);
    font.setUnderline(initial.underline);
    font.setStrikeOut(initial.strike_out);
    bool accepted = false;
    const QFont chosen = QFontDialog::getFont(&accepted, font, owner);
    if (!accepted)
        return std::nullopt;
    return Font_Choice{chosen.family(), chosen.pointSize(), chosen.bold(), chosen.italic(),
                       chosen.underline(), chosen.strikeOut()};
}

std::optional<QString> Qt_Dialog_Provider::Choose_Folder(QWidget* owner, const QString& prompt,
                                                         const QString& initial_folder)
{
    // The configuration window starts the folder dialog with a text that is
    // no folder; the dialog then starts in the user's home.
    const QString start = QDir(initial_folder).exists() && !initial_folder.isEmpty() ? initial_folder
                                                                                     : QDir::homePath();
    const QString folder = QFileDialog::getExistingDirectory(owner, prompt, start);
    if (folder.isEmpty())
        return std::nullopt;
    return folder;
}

} // namespace Orvane
