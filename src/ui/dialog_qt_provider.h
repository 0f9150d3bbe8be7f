#pragma once

#include "ui/dialog_provider.h"

namespace Orvane {

// The dialogs of the desktop, through Qt (native ones where the platform
// theme offers them).
class Qt_Dialog_Provider : public Dialog_Provider {
public:
    std::optional<QStringList> Open_Files(const File_Dialog_Request& request) override;
    std::optional<QString> Save_File(const File_Dialog_Request& request) override;
    std::optional<QColor> Choose_Color(QWidget* owner, const QColor& initial) override;
    std::optional<Font_Choice> Choose_Font(QWidget* owner, const Font_Choice& initial) override;
    std::optional<QString> Choose_Folder(QWidget* owner, const QString& prompt,
                                         const QString& initial_folder) override;
};

} // namespace Orvane
