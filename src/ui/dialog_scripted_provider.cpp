#include "ui/dialog_scripted_provider.h"

namespace Orvane {

template <typename Answer>
Answer Scripted_Dialog_Provider::Next(std::deque<Answer>& answers)
{
    Answer answer;
    if (!answers.empty()) {
        answer.swap(answers.front());
        answers.pop_front();
    }
    return answer;
}

std::optional<QStringList> Scripted_Dialog_Provider::Open_Files(const File_Dialog_Request& request)
{
    ++dialogs_shown_;
    file_requests_.push_back(request);
    return Next(open_answers_);
}

std::optional<QString> Scripted_Dialog_Provider::Save_File(const File_Dialog_Request& request)
{
    ++dialogs_shown_;
    file_requests_.push_back(request);
    return Next(save_answers_);
}

std::optional<QColor> Scripted_Dialog_Provider::Choose_Color(QWidget*, const QColor& initial)
{
    ++dialogs_shown_;
    initial_colors_.push_back(initial);
    return Next(color_answers_);
}

std::optional<Font_Choice> Scripted_Dialog_Provider::Choose_Font(QWidget*, const Font_Choice& initial)
{
    ++dialogs_shown_;
    initial_fonts_.push_back(initial);
    return Next(font_answers_);
}

std::optional<QString> Scripted_Dialog_Provider::Choose_Folder(QWidget*, const QString& prompt,
                                                               const QString&)
{
    ++dialogs_shown_;
    folder_prompts_.push_back(prompt);
    return Next(folder_answers_);
}

} // namespace Orvane
