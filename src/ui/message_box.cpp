#include "ui/message_box.h"

#include <QApplication>
#include <QMessageBox>

namespace Orvane {

namespace {
Message_Box_Recorder* active_recorder = nullptr;
}

Box_Answer Message_Box(const QString& text, Box_Style style, QWidget* parent)
{
    if (active_recorder)
        return active_recorder->Record(text, style);
    const QString title = QStringLiteral("Orvane");
    if (style == Box_Style::Ok_Cancel) {
        const auto answer = QMessageBox::question(parent, title, text,
                                                  QMessageBox::Ok | QMessageBox::Cancel,
                                                  QMessageBox::Ok);
        return answer == QMessageBox::Ok ? Box_Answer::Ok : Box_Answer::Cancel;
    }
    QMessageBox::critical(parent, title, text, QMessageBox::Ok);
    return Box_Answer::Ok;
}

void Beep()
{
    if (active_recorder) {
        active_recorder->Record_Beep();
        return;
    }
    QApplication::beep();
}

Message_Box_Recorder::Message_Box_Recorder(Box_Answer answer)
    : answer_(answer), previous_(active_recorder)
{
    active_recorder = this;
}

Box_Answer Message_Box_Recorder::Record(const QString& text, Box_Style style)
{
    boxes_.push_back({text, style});
    return style == Box_Style::Ok_Cancel ? answer_ : Box_Answer::Ok;
}

Message_Box_Recorder::~Message_Box_Recorder()
{
    active_recorder = previous_;
}

} // namespace Orvane
