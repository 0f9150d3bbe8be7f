#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace Orvane {

// What the command line asks of the program, decided before any
// application object exists so that the answers that show no window work
// without a display.
struct Command_Options {
    enum class Action { Start_Player, Show_Help, Show_Version, Check_File, Refuse };
    Action What = Action::Start_Player;
    // Start_Player: FILE and the switch, in the form Parse_Command_Line reads
    // ("--play" given anywhere comes after the file).
    QStringList Player_Arguments;
    // Start_Player: start a player of its own even when one is running.
    bool New_Window = false;
    // Check_File: the file and the language asked for.
    QString Check_File;
    std::optional<QString> Check_Language;
    // Show_Help, Show_Version: the text to print; Refuse: the one-line error.
    QString Text;
};

// Exit statuses of the answers that start no player.
constexpr int Exit_Done = 0;
constexpr int Exit_Not_Understood = 2;

// arguments: the whole command line, program name first. Qt's own options
// (-platform, -display, -style with their values) are left to the toolkit.
Command_Options Parse_Command_Options(const QStringList& arguments);

// "Orvane 0.5b".
QString Version_Text();

} // namespace Orvane
