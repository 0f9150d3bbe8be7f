#pragma once

#include <QString>
#include <vector>

class QWidget;

namespace Orvane {

enum class Box_Style {
    Critical_Ok, // stop icon, one OK button: the loaders' failures
    Ok_Cancel,   // a question answered with OK or Cancel: the disc change
};

enum class Box_Answer { Ok, Cancel };

// The one way the program tells the user something in a box. The title is
// the application's name.
Box_Answer Message_Box(const QString& text, Box_Style style = Box_Style::Critical_Ok,
                       QWidget* parent = nullptr);

// The system beep.
void Beep();

// Installed by tests (and by the command-line check) so that a recorder
// answers instead of a person. Restores the previous handler when destroyed.
class Message_Box_Recorder {
public:
    struct Shown {
        QString text;
        Box_Style style;
    };

    explicit Message_Box_Recorder(Box_Answer answer = Box_Answer::Ok);
    ~Message_Box_Recorder();
    Message_Box_Recorder(const Message_Box_Recorder&) = delete;
    Message_Box_Recorder& operator=(const Message_Box_Recorder&) = delete;

    void Set_Answer(Box_Answer answer) { answer_ = answer; }
    const std::vector<Shown>& Boxes() const { return boxes_; }
    int Beeps() const { return beeps_; }
    // Text of the last box, empty when none was shown.
    QString Last_Text() const { return boxes_.empty() ? QString() : boxes_.back().text; }
    void Clear() { boxes_.clear(); beeps_ = 0; }

    // Called by Message_Box and Beep while this recorder is installed.
    Box_Answer Record(const QString& text, Box_Style style);
    void Record_Beep() { ++beeps_; }

private:
    Box_Answer answer_;
    std::vector<Shown> boxes_;
    int beeps_ = 0;
    Message_Box_Recorder* previous_;
};

} // namespace Orvane
