// The command line: which action each asks for, and `orvane --check`, which
// reads a file with the program's own reader and prints what it understood
// or the box it would show.
#include "app/check_media_files.h"
#include "app/command_options.h"
#include "language/text_table.h"
#include "support/hostile_files.h"
#include "support/temp_folder.h"

#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <gtest/gtest.h>

// Failures show texts as text.
static void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace Orvane {
namespace {

using Action = Command_Options::Action;
using Orvane::Test::Crlf_Lines;

Command_Options Parse(const QStringList& arguments)
{
    return Parse_Command_Options(QStringList{"/usr/bin/orvane"} + arguments);
}

TEST(Command_Options, EachCommandLineAsksForOneAction)
{
    const std::pair<QStringList, QStringList> starts[] = {  // the arguments, what the player reads of them
        {{}, {}},
        {{"film.avi", "/play"}, {"film.avi", "/play"}},
        // An absolute FILE begins with "/" too: the first one is the file.
        {{"/home/me/film.avi", "/"}, {"/home/me/film.avi", "/"}},
        {{"--play", "list.orx"}, {"list.orx", "--play"}},
        {{"-platform", "offscreen", "film.avi"}, {"film.avi"}},
        {{"--", "-odd name.avi"}, {"-odd name.avi"}},
        {{"--new-window", "film.avi", "/play"}, {"film.avi", "/play"}},
    };
    for (const auto& [arguments, player_arguments] : starts) {
        SCOPED_TRACE(arguments.join(u' ').toStdString());
        const Command_Options options = Parse(arguments);
        ASSERT_EQ(options.What, Action::Start_Player);
        EXPECT_EQ(options.Player_Arguments, player_arguments);
        EXPECT_EQ(options.New_Window, arguments.contains("--new-window"));
    }
    EXPECT_EQ(Parse({"-h"}).What, Action::Show_Help);
    EXPECT_EQ(Parse({"film.avi", "--help"}).What, Action::Show_Help);
    EXPECT_EQ(Parse({"-v"}).What, Action::Show_Version);
    const Command_Options check = Parse({"--check", "--language", "English", "/etc/Lang.ini"});
    EXPECT_EQ(check.What, Action::Check_File);
    EXPECT_EQ(check.Check_File, "/etc/Lang.ini");
    EXPECT_EQ(check.Check_Language, QStringLiteral("English"));

    for (const QStringList& refused : {QStringList{"--no-such-option"}, {"film.avi", "-x"}, {"--check"},
                                       {"--check", "a.sub", "b.sub"}, {"--check", "a.sub", "--play"},
                                       {"--check", "a.sub", "--new-window"}, {"--language", "English"},
                                       {"--check", "Lang.ini", "--language"}}) {
        SCOPED_TRACE(refused.join(u' ').toStdString());
        EXPECT_EQ(Parse(refused).What, Action::Refuse);
        EXPECT_FALSE(Parse(refused).Text.isEmpty());
    }
}

const QString Resources = QStringLiteral(ORVANE_SOURCE_DIR "/resources/");
const QString Access_Error = QStringLiteral("75, Path/File access error");

// The exit status and the printed lines of `orvane --check arguments`.
std::pair<int, QStringList> Run_Orvane_Check(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(ORVANE_BINARY_DIR "/orvane"), QStringList{"--check"} + arguments);
    EXPECT_TRUE(process.waitForFinished(30000));
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts)};
}

TEST(Check_Command, ShippedFilesAreAccepted)
{
    EXPECT_EQ(Run_Orvane_Check({Resources + "orvan.ini"}),
              std::pair(0, QStringList{"OK", "Language_Name: Français", "Subtitle_Font_Name: DejaVu Sans",
                  "Subtitle_Font_Size: 24", "Subtitle_Font_Bold: 0", "Subtitle_Font_Italic: 0",
                  "Subtitle_Color: 16777215", "Subtitle_Transparent: 0", "Playlist_Repeat: 0", "CD1_Drive: ",
                  "CD2_Drive: ", "Volume_Setting: 3", "Save_Settings: 1"}));

    const auto [status, lines] = Run_Orvane_Check({Resources + "Lang.ini", "--language", "English"});
    EXPECT_EQ(status, 0);
    EXPECT_EQ(lines.mid(0, 5),
              (QStringList{"OK", "languages: Français;English", "column: 2", "0001 Open", "0002 Play"}));
    EXPECT_EQ(lines.value(lines.size() - 1), "9999 ");  // the last line is never found
}

TEST(Check_Command, RefusalsPrintTheBoxOnOneLine)
{
    Orvane::Test::Temp_Folder folder;
    ASSERT_TRUE(QFile::copy(Resources + "orvan.ini", folder.File("orvan.ini")));
    folder.Write("damaged.ini", folder.Read("orvan.ini").replace(">Gras\r\n0\r\n", ">Gras\r\nbold\r\n"));
    Text_Table texts;
    ASSERT_TRUE(texts.Load_Language(ORVANE_BINARY_DIR, "Français"));
    const QString box = texts.Get_Text(1010) + " / " + texts.Get_Text(1007) + " / " + texts.Get_Text(1008)
        + "13, Type mismatch / " + texts.Get_Text(1009) + " / " + texts.Get_Text(1009);
    EXPECT_EQ(Run_Orvane_Check({folder.File("damaged.ini")}), std::pair(1, QStringList{"ERROR: " + box}));
    EXPECT_EQ(Run_Orvane_Check({folder.File("Lang.ini")}), std::pair(1, QStringList{"ERROR:"}));  // no box
    EXPECT_EQ(Run_Orvane_Check({"notes.txt"}).first, 2);

    // Every reader refuses a pipe, which would hang one that waits on it, with
    // the access error (the language file without a box).
    for (const QString name : {"orvan.ini", "Lang.ini", "x.sub", "x.m3u", "x.orx"}) {
        SCOPED_TRACE(name.toStdString());
        Orvane::Test::Temp_Folder pipes;
        ASSERT_TRUE(Orvane::Test::Make_Named_Pipe(pipes.File(name)));
        const auto [status, lines] = Run_Orvane_Check({pipes.File(name)});
        EXPECT_EQ(status, 1);
        if (name == "Lang.ini")
            EXPECT_EQ(lines, QStringList{"ERROR:"});
        else
            EXPECT_TRUE(lines.size() == 1 && lines[0].startsWith("ERROR:") && lines[0].contains(Access_Error))
                << lines.join(u'\n').toStdString();
    }
}

// The subtitle and playlist checks, with a program folder of their own.
class Check_Media_Files_Test : public testing::Test {
protected:
    void SetUp() override
    {
        program_.Write("orvan.ini", Crlf_Lines({"<< Orvane - configuration file>>", "[VERSION]", "0.5b", "[LANGUE]",
            "English", "[SOUS TITRAGE]", ">Police", "DejaVu Sans", ">Gras", "0", ">Italique", "0", ">Taille", " 24 ",
            ">Couleur", "16777215", ">Transparence", "0", "[PLAYLIST]", ">Repeter", "0", "[LECTEURS]", ">CD1",
            "/media/cdrom", ">CD2", "Aucun", "[VOLUME]", " 3 ", "[CONFIG]", ">Enregistrer", "0", "<< end >>"}));
        program_.Write("Lang.ini", Crlf_Lines({"0.5b", "", "English", "",
            "1208;A subtitle entry of this playlist is not valid.", "1310;This subtitle file could not be read:",
            "9999;never looked up"}));
    }

    // The status and the printed text of a check of a file of these lines.
    std::pair<int, QString> Check(int (*check)(const QString&, QTextStream&, const QString&), const QString& name,
                                  const QStringList& lines) const
    {
        QString text;
        QTextStream out(&text);
        const int status = check(files_.Write(name, Crlf_Lines(lines)), out, program_.Path());
        out.flush();
        return {status, text};
    }

    Orvane::Test::Temp_Folder program_;
    Orvane::Test::Temp_Folder files_;
};

TEST_F(Check_Media_Files_Test, SubtitleAndPlaylistFilesPrintWhatTheReaderUnderstoodOrTheBox)
{
    EXPECT_EQ(Check(Check_Subtitle_File, "film.sub", {"[TITLE]", "Harbour walk", "[AUTHOR]", "Jane", "[DELAY]", "5",
                  "[CD TRACK]", "1", "[BEGIN]", "", "[00:00:02]", "Hello|World", "[00:00:06]", "One line", "[END]"}),
              std::pair(0, QString("OK\ntitle: Harbour walk\nauthor: Jane\nsource: \nprogram: \nfilepath: \n"
                  "delay: 00:00:05\ncd track: 1\n1 00:00:02 Hello|World\n2 00:00:06 One line|\n3 23:59:59 Fin|Fin\n")));
    EXPECT_EQ(Check(Check_Subtitle_File, "film.sub", {"[TITLE]", "No body"}),
              std::pair(1, QString("ERROR: film.sub / This subtitle file could not be read: / 62, Input past end of "
                                   "file\n")));

    // A playlist prints its entries, beeps and messages in order; one the loader stops in, the error first.
    EXPECT_EQ(Check(Check_Playlist_File, "list.orx", {"#EXTORX",
                  "#TRACK", "Titre=One", "Media=/films/a.avi", "Audio=/a.wav;;/b.wav", "SousT=/films/a.sub",
                  "#TRACK", "Title=Two", "Media=$$CD2$$\\VIDEO\\B.AVI", "Audio=", "SousT=b.sub",
                  "#TRACK", "Titre=Three", "Media=$$CD1$$\\C.AVI", "Audio=", "SousT="}),
              std::pair(0, QString("OK\n1\tOne\t/films/a.avi\t/a.wav;;/b.wav\t/films/a.sub\t0\nBEEP line 8\n"
                  "2\tTwo\t/media/cdrom/VIDEO/B.AVI\t\t\t1\nMESSAGE: A subtitle entry of this playlist is not valid.\n"
                  "3\tThree\t/media/cdrom/C.AVI\t\t\t0\n")));
    EXPECT_EQ(Check(Check_Playlist_File, "list.m3u", {"#EXTM3U", "#EXTINF:10,First", "/music/a.mp3",
                  "#EXTINF:20,Second, part 2", "D:\\Music\\b.mp3", "#EXTINF:30,Cut"}),
              std::pair(1, QString("ERROR: list.m3u / 62, Input past end of file\n1\tFirst\t/music/a.mp3\t\t\t0\n"
                                   "2\tSecond, part 2\tD:/Music/b.mp3\t\t\t0\n")));
    EXPECT_EQ(Check(Check_Playlist_File, "list.pls", {"[playlist]", "File1=/a.mp3"}),
              std::pair(1, QString("ERROR:\n")));

    // Without its configuration the program cannot read anything.
    QFile::remove(program_.File("orvan.ini"));
    EXPECT_TRUE(Check(Check_Subtitle_File, "film.sub", {"[BEGIN]", "", "[END]"}).second.startsWith("ERROR:"));
}

} // namespace
} // namespace Orvane
