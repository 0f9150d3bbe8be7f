#include "app/check_media_files.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTextStream>

namespace Orvane {
namespace {

QByteArray Crlf_Lines(const QStringList& lines)
{
    return (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
}

// A program folder of its own: the configuration and language files the
// check reads beside the executable.
class Check_Media_Files_Test : public testing::Test {
protected:
    Check_Media_Files_Test()
    {
        Write_Config(QString());
        program_.Write(QStringLiteral("Lang.ini"),
                       Crlf_Lines({"0.5b", "", "English", "",
                                   "1208;A subtitle entry of this playlist is not valid.",
                                   "1301; is not followed by a valid value.",
                                   "1303; : time out of order.",
                                   "1305;It is the same as the time of the line before.",
                                   "1310;This subtitle file could not be read:",
                                   "9999;never looked up"}));
    }

    void Write_Config(const QString& second_drive)
    {
        program_.Write(QStringLiteral("orvan.ini"),
                       Crlf_Lines({"<< Orvane - configuration file>>", "[VERSION]", "0.5b", "[LANGUE]", "English",
                                   "[SOUS TITRAGE]", ">Police", "DejaVu Sans", ">Gras", "0", ">Italique", "0",
                                   ">Taille", " 24 ", ">Couleur", "16777215", ">Transparence", "0", "[PLAYLIST]",
                                   ">Repeter", "0", "[LECTEURS]", ">CD1", "/media/cdrom", ">CD2", second_drive,
                                   "[VOLUME]", " 3 ", "[CONFIG]", ">Enregistrer", "0",
                                   "<< Do not change this file >>"}));
    }

    struct Output {
        int status;
        QString text;
    };

    Output Check_Subtitles(const QStringList& lines)
    {
        QString text;
        QTextStream out(&text);
        const int status = Check_Subtitle_File(files_.Write(QStringLiteral("film.sub"), Crlf_Lines(lines)), out,
                                               program_.Path());
        out.flush();
        return {status, text};
    }

    Output Check_Playlist(const QString& name, const QStringList& lines)
    {
        QString text;
        QTextStream out(&text);
        const int status = Check_Playlist_File(files_.Write(name, Crlf_Lines(lines)), out, program_.Path());
        out.flush();
        return {status, text};
    }

    Orvane::Test::Temp_Folder program_;
    Orvane::Test::Temp_Folder files_;
};

TEST_F(Check_Media_Files_Test, SubtitleFilePrintsItsHeaderAndEntries)
{
    const Output output = Check_Subtitles({"[TITLE]", "Harbour walk", "[AUTHOR]", "Jane", "[DELAY]", "5",
                                           "[CD TRACK]", "1", "[BEGIN]", "", "[00:00:02]", "Hello|World",
                                           "[00:00:06]", "One line", "[END]"});
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(output.text, "OK\n"
                           "title: Harbour walk\n"
                           "author: Jane\n"
                           "source: \n"
                           "program: \n"
                           "filepath: \n"
                           "delay: 00:00:05\n"
                           "cd track: 1\n"
                           "1 00:00:02 Hello|World\n"
                           "2 00:00:06 One line|\n"
                           "3 23:59:59 Fin|Fin\n");
}

TEST_F(Check_Media_Files_Test, RefusedSubtitleFilePrintsTheBoxOnOneLine)
{
    Output output = Check_Subtitles({"[BEGIN]", "", "[00:00:05]", "a", "[00:00:05]", "b", "[END]"});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.text, "ERROR: film.sub / This subtitle file could not be read: / 00:00:05 : time out of "
                           "order. / It is the same as the time of the line before.\n");

    output = Check_Subtitles({"[TITLE]", "No body"});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.text,
              "ERROR: film.sub / This subtitle file could not be read: / 62, Input past end of file\n");

    // Without its configuration the program cannot read anything.
    QFile::remove(program_.File(QStringLiteral("orvan.ini")));
    output = Check_Subtitles({"[BEGIN]", "", "[END]"});
    EXPECT_EQ(output.status, 1);
    EXPECT_TRUE(output.text.startsWith("ERROR:")) << output.text.toStdString();
}

TEST_F(Check_Media_Files_Test, OwnPlaylistPrintsEntriesBeepsAndMessagesInOrder)
{
    Write_Config(QStringLiteral("Aucun"));
    const Output output = Check_Playlist(QStringLiteral("list.orx"),
                                         {"#EXTORX",
                                          "#TRACK", "Titre=One", "Media=/films/a.avi", "Audio=/a.wav;;/b.wav",
                                          "SousT=/films/a.sub",
                                          "#TRACK", "Title=Two", "Media=$$CD2$$\\VIDEO\\B.AVI", "Audio=",
                                          "SousT=b.sub",
                                          "#TRACK", "Titre=Three", "Media=$$CD1$$\\C.AVI", "Audio=", "SousT="});
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(output.text, "OK\n"
                           "1\tOne\t/films/a.avi\t/a.wav;;/b.wav\t/films/a.sub\t0\n"
                           "BEEP line 8\n"
                           "2\tTwo\t/media/cdrom/VIDEO/B.AVI\t\t\t1\n"
                           "MESSAGE: A subtitle entry of this playlist is not valid.\n"
                           "3\tThree\t/media/cdrom/C.AVI\t\t\t0\n");
}

TEST_F(Check_Media_Files_Test, M3uPlaylistPrintsItsEntryNumbersAndStopsClearly)
{
    Output output = Check_Playlist(QStringLiteral("list.m3u"),
                                   {"#EXTM3U", "#EXTINF:10,First", "/music/a.mp3", "#EXTINF:20,Second, part 2",
                                    "D:\\Music\\b.mp3", "#EXTINF:30,Cut"});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.text, "ERROR: list.m3u / 62, Input past end of file\n"
                           "1\tFirst\t/music/a.mp3\t\t\t0\n"
                           "2\tSecond, part 2\tD:/Music/b.mp3\t\t\t0\n");

    output = Check_Playlist(QStringLiteral("list.pls"), {"[playlist]", "File1=/a.mp3"});
    EXPECT_EQ(output.status, 1);
    EXPECT_EQ(output.text, "ERROR:\n");
}

} // namespace
} // namespace Orvane
