#include "config/config_file.h"
#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include <tuple>

namespace Orvane {
namespace {

// Line numbers (from 1) of the values in the file.
enum { Version = 3, Bold_Key = 9, Bold = 10, Size = 14, Color = 16, Transparent = 18, Volume = 28 };

const QStringList Good_Lines = {
    "<< Orvane - configuration file>>", "[VERSION]", "0.5b", "[LANGUE]", "English",
    "[SOUS TITRAGE]", ">Police", "DejaVu Sans", ">Gras", "1", ">Italique", "0", ">Taille", " 12 ",
    ">Couleur", "255", ">Transparence", "1", "[PLAYLIST]", ">Repeter", "1", "[LECTEURS]", ">CD1",
    "/media/cdrom", ">CD2", "Aucun", "[VOLUME]", " 4 ", "[CONFIG]", ">Enregistrer", "0",
    "<< Do not change this file >>"};

QByteArray Crlf(const QStringList& lines) { return (lines.join("\r\n") + "\r\n").toUtf8(); }

QStringList With(int line, const QString& value)
{
    QStringList lines = Good_Lines;
    lines[line - 1] = value;
    return lines;
}

// Texts 1010 and 1009 open and close every box.
QString Box(const QString& message) { return "config error\n" + message + "\ncannot continue"; }
QString Trap(const QString& error) { return Box("read error\nerror " + error + "\ncannot continue"); }

class Config_File_Test : public testing::Test {
protected:
    void SetUp() override
    {
        folder.Write("Lang.ini", "0.5b\r\n\r\nEnglish\r\n\r\n1004;first line\r\n1005;version\r\n"
                                 "1006;missing: \r\n1007;read error\r\n1008;error \r\n"
                                 "1009;cannot continue\r\n1010;config error\r\n9999;end\r\n");
    }
    void Write(const QStringList& lines) { folder.Write("orvan.ini", Crlf(lines)); }
    bool Read() { return Read_Config(folder.Path(), settings, texts); }
    // Reads lines afresh; true when they were accepted without a box.
    bool Accepted(const QStringList& lines)
    {
        Write(lines);
        boxes.Clear();
        texts = Text_Table();
        settings = Settings();
        return Read() && boxes.Boxes().empty();
    }

    Orvane::Test::Temp_Folder folder;
    Message_Box_Recorder boxes;
    Settings settings;
    Text_Table texts;
};

TEST_F(Config_File_Test, ValueRules)
{
    // Bold takes any non-zero number, transparency only 1; the size is the leading number rounded half to even.
    const std::tuple<int, const char*, int> accepted[] = {{Bold, "2", 1}, {Transparent, "2", 0}, {Size, "12.5", 12},
        {Size, "13.5", 14}, {Size, "abc", 0}, {Size, "  7px", 7}, {2, "[version]", 12}, {1, "<<", 12}};
    for (const auto& [line, text, value] : accepted) {
        EXPECT_TRUE(Accepted(With(line, text))) << text;
        EXPECT_EQ(line == Bold ? settings.Subtitle_Font_Bold
                  : line == Transparent ? settings.Subtitle_Transparent : settings.Subtitle_Font_Size, value) << text;
    }
    EXPECT_TRUE(Accepted(Good_Lines.mid(0, 31) + QStringList{"anything", "more"}));
}

TEST_F(Config_File_Test, RefusalsShowTheirBox)
{
    // Lines 1 to 3 are checked before the language is loaded: its texts are still empty.
    const std::pair<QStringList, QString> refused[] = {
        {With(1, "< <"), "\n\n"}, {With(Version, "0.5B"), "\n\n"}, {With(2, "[VERSION] "), "\n[VERSION]\n"},
        {With(Bold_Key, ">Gras "), Box("missing: >Bold")}, {With(20, ">Repete"), Box("missing: >Repeter")},
        {With(Transparent, "yes"), Trap("13, Type mismatch")}, {With(Bold, ""), Trap("13, Type mismatch")},
        {With(Size, "40000"), Trap("6, Overflow")}, {With(Volume, "-32769"), Trap("6, Overflow")},
        {Good_Lines.mid(0, 20), Trap("62, Input past end of file")}};
    for (const auto& [lines, box] : refused) {
        SCOPED_TRACE(lines.join(" | ").toStdString());
        EXPECT_FALSE(Accepted(lines));
        ASSERT_EQ(boxes.Boxes().size(), 1u);
        EXPECT_EQ(boxes.Last_Text(), box);
    }

    // With the texts loaded (a reload), the first line and the version show theirs, the version before any later line.
    ASSERT_TRUE(texts.Load_Language(folder.Path(), "English"));
    Write(With(1, "< <"));
    EXPECT_FALSE(Read());
    EXPECT_EQ(boxes.Last_Text(), Box("first line"));
    Write(With(Bold_Key, ">Bold").replaceInStrings("0.5b", "0.6"));
    EXPECT_FALSE(Read());
    EXPECT_EQ(boxes.Last_Text(), Box("version"));
    QFile::remove(folder.File("orvan.ini"));
    Text_Table empty;
    EXPECT_FALSE(Read_Config(folder.Path(), settings, empty));
    EXPECT_EQ(boxes.Last_Text(), "\n\n53, File not found\n\n");

    // The language file reports its own refusal; the settings are read up to the language.
    QFile::remove(folder.File("Lang.ini"));
    EXPECT_FALSE(Accepted(Good_Lines));
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(settings.Language_Name, "English");
}

TEST_F(Config_File_Test, WritesTheLayoutReadsBackTheSameSettingsAndSaysWhyAWriteFailed)
{
    ASSERT_TRUE(Accepted(Good_Lines));
    settings.Subtitle_Color = int32_t(65280);
    ASSERT_TRUE(Write_Config(folder.Path(), settings, 5));
    QStringList expected = With(Color, " 65280 ");
    expected[Volume - 1] = " 5 ";
    EXPECT_EQ(folder.Read("orvan.ini"), Crlf(expected));
    // The next start reads the volume written.
    ASSERT_TRUE(Read());
    EXPECT_EQ(settings.Volume_Setting, 5);

    // What a failed write leaves is the file saver's; the box is the configuration's.
    ASSERT_TRUE(QDir(folder.Path()).mkpath("blocked/orvan.ini/inside"));
    boxes.Clear();
    EXPECT_FALSE(Write_Config(folder.File("blocked"), settings, 3));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Last_Text(), folder.File("blocked/orvan.ini") + "\nIs a directory");
}

// The shipped file is the writer's own output and names a shipped language.
TEST_F(Config_File_Test, ShippedFileReadsAndWritesBackUnchanged)
{
    for (const char* name : {"orvan.ini", "Lang.ini"}) {
        QFile::remove(folder.File(name));
        ASSERT_TRUE(QFile::copy(QString(ORVANE_SOURCE_DIR "/resources/") + name, folder.File(name)));
    }
    ASSERT_TRUE(Read());
    EXPECT_EQ(texts.Language_Column(), 1);
    const QByteArray shipped = folder.Read("orvan.ini");
    ASSERT_TRUE(Write_Config(folder.Path(), settings, settings.Volume_Setting));
    EXPECT_EQ(folder.Read("orvan.ini"), shipped);
}

} // namespace
} // namespace Orvane
