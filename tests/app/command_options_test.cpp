#include "app/application.h"
#include "app/command_options.h"

#include <gtest/gtest.h>

// Failures show texts as text.
static void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace Orvane {
namespace {

using Action = Command_Options::Action;

struct Option_Case {
    QStringList arguments;  // after the program name
    Action action;
    QStringList player_arguments;  // Start_Player: what the player reads; Check_File: file, language
};

TEST(Command_Options, EachCommandLineAsksForOneAction)
{
    const Option_Case cases[] = {
        {{}, Action::Start_Player, {}},
        {{"film.avi"}, Action::Start_Player, {"film.avi"}},
        {{"film.avi", "/play"}, Action::Start_Player, {"film.avi", "/play"}},
        // An absolute FILE begins with "/" too: the first one is the file.
        {{"/home/me/film.avi", "/"}, Action::Start_Player, {"/home/me/film.avi", "/"}},
        {{"/home/me/film.avi"}, Action::Start_Player, {"/home/me/film.avi"}},
        {{"--play", "list.orx"}, Action::Start_Player, {"list.orx", "--play"}},
        {{"-platform", "offscreen", "film.avi"}, Action::Start_Player, {"film.avi"}},
        {{"--", "-odd name.avi"}, Action::Start_Player, {"-odd name.avi"}},
        {{"--new-window", "film.avi", "/play"}, Action::Start_Player, {"film.avi", "/play"}},
        {{"--help"}, Action::Show_Help, {}},
        {{"-h"}, Action::Show_Help, {}},
        {{"film.avi", "--help"}, Action::Show_Help, {}},
        {{"--version"}, Action::Show_Version, {}},
        {{"-v"}, Action::Show_Version, {}},
        {{"--check", "Lang.ini"}, Action::Check_File, {"Lang.ini"}},
        {{"--check", "Lang.ini", "--language", "English"}, Action::Check_File, {"Lang.ini", "English"}},
        {{"--check", "--language", "English", "/etc/Lang.ini"}, Action::Check_File, {"/etc/Lang.ini", "English"}},
        {{"--no-such-option"}, Action::Refuse, {}},
        {{"film.avi", "-x"}, Action::Refuse, {}},
        {{"--check"}, Action::Refuse, {}},
        {{"--check", "a.sub", "b.sub"}, Action::Refuse, {}},
        {{"--check", "a.sub", "--play"}, Action::Refuse, {}},
        {{"--check", "a.sub", "--new-window"}, Action::Refuse, {}},
        {{"--language", "English"}, Action::Refuse, {}},
        {{"--check", "Lang.ini", "--language"}, Action::Refuse, {}},
    };
    for (const Option_Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        const Command_Options options = Parse_Command_Options(QStringList{"/usr/bin/orvane"} + c.arguments);
        ASSERT_EQ(options.What, c.action);
        if (c.action == Action::Start_Player) {
            EXPECT_EQ(options.Player_Arguments, c.player_arguments);
            EXPECT_EQ(options.New_Window, c.arguments.contains("--new-window"));
        }
        if (c.action == Action::Check_File) {
            EXPECT_EQ(options.Check_File, c.player_arguments.value(0));
            EXPECT_EQ(options.Check_Language.value_or(QString()), c.player_arguments.value(1));
            EXPECT_EQ(options.Check_Language.has_value(), c.player_arguments.size() == 2);
        }
        if (c.action == Action::Refuse) {
            EXPECT_FALSE(options.Text.isEmpty());
        }
    }
}

struct Display_Case {
    const char* qt_qpa_platform;
    const char* wayland_display;
    const char* x_display;
    bool prefer_x;
};

TEST(Display_Choice, XWaylandIsChosenOnlyWhenBothDisplaysAreThereAndTheUserChoseNothing)
{
    const Display_Case cases[] = {
        {"", "wayland-0", ":0", true},
        {"wayland", "wayland-0", ":0", false},
        {"offscreen", "wayland-0", ":0", false},
        {"", "wayland-0", "", false},
        {"", "", ":0", false},
        {"", "", "", false},
    };
    for (const Display_Case& c : cases) {
        SCOPED_TRACE(std::string(c.qt_qpa_platform) + " | " + c.wayland_display + " | " + c.x_display);
        EXPECT_EQ(Prefer_X_Display(c.qt_qpa_platform, c.wayland_display, c.x_display), c.prefer_x);
    }
}

} // namespace
} // namespace Orvane
