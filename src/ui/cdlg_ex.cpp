#include "ui/cdlg_ex.h"

#include "ui/windows_rgb.h"

#include <QDir>
#include <QFileInfo>

namespace Orvane {

namespace {

constexpr QChar Nul = QChar(0);

QString Padded(QString text, int size)
{
    if (text.size() < size)
        text.append(QString(size - text.size(), Nul));
    return text;
}

QString Cut_At_Nul(const QString& text)
{
    const qsizetype nul = text.indexOf(Nul);
    return nul < 0 ? text : text.left(nul);
}

// The open dialog's buffer for the files chosen: one full path, or with
// several files the folder then the names, each ended by a NUL, and a final NUL.
QString Open_Buffer(const QStringList& paths)
{
    if (paths.size() == 1)
        return paths.constFirst();
    const QDir folder = QFileInfo(paths.constFirst()).absoluteDir();
    QString buffer = folder.absolutePath();
    for (const QString& path : paths)
        buffer += Nul + folder.relativeFilePath(path);
    return buffer + Nul + Nul;
}

} // namespace

void CdlgEx::Set_Action(int32_t action)
{
    switch (action) {
    case 1: ShowOpen(); break;
    case 2: ShowSave(); break;
    case 3: ShowColor(); break;
    case 4: ShowFont(); break;
    case 8: ShowFolder(); break;
    default: break;
    }
}

QString CdlgEx::Filter_Record() const
{
    QString record = filter_;
    record.replace(u'|', Nul);
    return record + Nul + Nul;
}

QStringList CdlgEx::Name_Filters(const QString& filter_record)
{
    const QStringList pieces = filter_record.split(Nul);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        const QString& description = pieces[i];
        if (description.isEmpty())
            break;  // the double NUL that ends the list
        QStringList patterns;
        for (const QString& pattern : pieces[i + 1].split(u';', Qt::SkipEmptyParts))
            patterns.append(pattern.trimmed());
        if (patterns.isEmpty())
            patterns.append(QStringLiteral("*"));
        filters.append(description + QStringLiteral(" (") + patterns.join(u' ') + u')');
    }
    return filters;
}

QStringList CdlgEx::Selected_Files(const QString& file_name)
{
    QStringList pieces = file_name.split(Nul);
    while (!pieces.isEmpty() && pieces.constLast().isEmpty())
        pieces.removeLast();
    // A double NUL inside ends the list too.
    const qsizetype end = pieces.indexOf(QString());
    if (end >= 0)
        pieces = pieces.mid(0, end);
    if (pieces.size() <= 1)
        return pieces;
    const QDir folder(pieces.takeFirst());
    QStringList paths;
    for (const QString& name : pieces)
        paths.append(folder.filePath(name));
    return paths;
}

File_Dialog_Request CdlgEx::File_Request() const
{
    const int32_t record_flags = File_Record_Flags();
    File_Dialog_Request request;
    request.owner = owner_;
    request.title = dialog_title_;
    request.initial_folder = init_dir_;
    request.default_suffix = default_ext_.startsWith(u'.') ? default_ext_.mid(1) : default_ext_;
    request.name_filters = Name_Filters(Filter_Record());
    request.selected_filter = filter_index_ > 0 ? filter_index_ - 1 : 0;
    request.multiple = (record_flags & Allow_Multi_Select) != 0;
    request.confirm_overwrite = (record_flags & Overwrite_Prompt) != 0;
    return request;
}

void CdlgEx::Change_Directory_To(const QString& file_path) const
{
    if (File_Record_Flags() & No_Change_Dir)
        return;
    QDir::setCurrent(QFileInfo(file_path).absolutePath());
}

void CdlgEx::ShowOpen()
{
    const std::optional<QStringList> chosen = provider_.Open_Files(File_Request());
    if (!chosen || chosen->isEmpty()) {
        cancel_error_ = true;
        return;
    }
    const QString title = chosen->size() == 1 ? QFileInfo(chosen->constFirst()).fileName() : QString();
    file_title_ = Padded(title.left(File_Title_Capacity - 1), File_Buffer_Size);
    file_name_ = Padded(Open_Buffer(*chosen), File_Buffer_Size);
    Change_Directory_To(chosen->constFirst());
}

void CdlgEx::ShowSave()
{
    File_Dialog_Request request = File_Request();
    request.multiple = false;
    const std::optional<QString> chosen = provider_.Save_File(request);
    if (!chosen || chosen->isEmpty()) {
        cancel_error_ = true;
        return;
    }
    // The save dialog's buffers are cut at their first NUL, so no padding is left.
    file_title_ = Cut_At_Nul(QFileInfo(*chosen).fileName().left(File_Title_Capacity - 1));
    file_name_ = Cut_At_Nul(*chosen);
    Change_Directory_To(file_name_);
}

void CdlgEx::ShowColor()
{
    const std::optional<QColor> chosen = provider_.Choose_Color(owner_, Windows_Rgb_Color(rgb_result_));
    if (!chosen || !chosen->isValid()) {
        cancel_error_ = true;
        return;
    }
    rgb_result_ = Windows_Rgb_Value(*chosen);
}

void CdlgEx::ShowFont()
{
    const std::optional<Font_Choice> chosen = provider_.Choose_Font(owner_, font_);
    if (!chosen) {
        cancel_error_ = true;
        return;
    }
    font_ = *chosen;
}

void CdlgEx::ShowFolder()
{
    const std::optional<QString> chosen = provider_.Choose_Folder(owner_, dialog_prompt_, init_dir_);
    if (!chosen || chosen->isEmpty()) {
        cancel_error_ = true;
        return;
    }
    init_dir_ = *chosen;
}

int32_t CdlgEx::IconSize()
{
    icon_size_ = 32;
    return icon_size_;
}

} // namespace Orvane
