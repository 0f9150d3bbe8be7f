#pragma once

#include "ui/dialog_provider.h"

#include <deque>
#include <vector>

namespace Orvane {

// Answers the dialogs from a script instead of a person: tests and the
// command-line check use it. Each call takes the next answer queued for its
// kind of dialog; an empty queue (or a queued nothing) is a cancel. Every
// request is kept so that a test can see what the dialog was asked to show.
class Scripted_Dialog_Provider : public Dialog_Provider {
public:
    void Queue_Open(std::optional<QStringList> answer) { open_answers_.push_back(std::move(answer)); }
    void Queue_Save(std::optional<QString> answer) { save_answers_.push_back(std::move(answer)); }
    void Queue_Color(std::optional<QColor> answer) { color_answers_.push_back(answer); }
    void Queue_Font(std::optional<Font_Choice> answer) { font_answers_.push_back(std::move(answer)); }
    void Queue_Folder(std::optional<QString> answer) { folder_answers_.push_back(std::move(answer)); }

    std::optional<QStringList> Open_Files(const File_Dialog_Request& request) override;
    std::optional<QString> Save_File(const File_Dialog_Request& request) override;
    std::optional<QColor> Choose_Color(QWidget* owner, const QColor& initial) override;
    std::optional<Font_Choice> Choose_Font(QWidget* owner, const Font_Choice& initial) override;
    std::optional<QString> Choose_Folder(QWidget* owner, const QString& prompt,
                                         const QString& initial_folder) override;

    const std::vector<File_Dialog_Request>& File_Requests() const { return file_requests_; }
    const std::vector<QColor>& Initial_Colors() const { return initial_colors_; }
    const std::vector<Font_Choice>& Initial_Fonts() const { return initial_fonts_; }
    const std::vector<QString>& Folder_Prompts() const { return folder_prompts_; }
    // Number of dialogs shown, of every kind.
    int Dialogs_Shown() const { return dialogs_shown_; }

private:
    template <typename Answer>
    static Answer Next(std::deque<Answer>& answers);

    std::deque<std::optional<QStringList>> open_answers_;
    std::deque<std::optional<QString>> save_answers_;
    std::deque<std::optional<QColor>> color_answers_;
    std::deque<std::optional<Font_Choice>> font_answers_;
    std::deque<std::optional<QString>> folder_answers_;
    std::vector<File_Dialog_Request> file_requests_;
    std::vector<QColor> initial_colors_;
    std::vector<Font_Choice> initial_fonts_;
    std::vector<QString> folder_prompts_;
    int dialogs_shown_ = 0;
};

} // namespace Orvane
