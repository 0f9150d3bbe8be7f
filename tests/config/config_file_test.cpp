#include "config/config_file.h"
#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace Orvane {
namespace {

// Line numbers (from 1) of the values in the file.
enum { Version = 3, Bold_Key = 9, Bold = 10, Size = 14, Color = 16,
       Transparent = 18, Volume = 28 };

const QStringList Good_Lines = {
    "<< Orvane - configuration file>>", "[VERSION]", "0.5b", "[LANGUE]", "English",
    "[SOUS TITRAGE]", ">Police", "DejaVu Sans", ">Gras", "1", ">Italique", "0", ">Taille", " 12 ",
    ">Couleur", "255", ">Transparence", "1", "[PLAYLIST]", ">Repeter", "1", "[LECTEURS]", ">CD1",
    "/media/cdrom", ">CD2", "Aucun", "[VOLUME]", " 4 ", "[CONFIG]", ">Enregistrer", "0",
    "<< Do not change this file >>"};

const QString Opening = "config error", Closing = "cannot continue";

class Config_File_Test : public testing::Test {
protected:
    void SetUp() override
    {
        folder.Write("Lang.ini", "0.5b\r\n\r\nEnglish\r\n\r\n1004;first line\r\n1005;version\r\n"
                                 "1006;missing: \r\n1007;read error\r\n1008;error \r\n"
                                 "1009;cannot continue\r\n1010;config error\r\n9999;end\r\n");
    }
    void Write(const QStringList& lines) { folder.Write("orvan.ini", (lines.join("\r\n") + "\r\n").toUtf8()); }
    QStringList With(int line, const QString& value) const
    {
        QStringList lines = Good_Lines;
        lines[line - 1] = value;
        return lines;
    }
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
    // The one box shown when lines are refused.
    QString Refusal(const QStringList& lines)
    {
        EXPECT_FALSE(Accepted(lines));
        EXPECT_EQ(boxes.Boxes().size(), 1u);
        return boxes.Last_Text();
    }
    static QString Box(const QString& message) { return Opening + '\n' + message + '\n' + Closing; }
    static QString Trap(const QString& error)
    {
        return Box("read error\nerror " + error + '\n' + Closing);
    }

    Orvane::Test::Temp_Folder folder;
    Message_Box_Recorder boxes;
    Settings settings;
    Text_Table texts;
};

TEST_F(Config_File_Test, ValueRules)
{
    EXPECT_TRUE(Accepted(With(Bold, "2")));
    EXPECT_TRUE(settings.Subtitle_Font_Bold);
    EXPECT_TRUE(Accepted(With(Transparent, "2")));
    EXPECT_FALSE(settings.Subtitle_Transparent);
    const std::pair<const char*, int> sizes[] = {{"12.5", 12}, {"13.5", 14}, {"abc", 0}, {"  7px", 7}};
    for (const auto& [text, size] : sizes) {
        EXPECT_TRUE(Accepted(With(Size, text)));
        EXPECT_EQ(settings.Subtitle_Font_Size, size) << text;
    }
    EXPECT_TRUE(Accepted(With(2, "[version]")));
    EXPECT_TRUE(Accepted(With(1, "<<")));
    EXPECT_TRUE(Accepted(Good_Lines.mid(0, 31) + QStringList{"anything", "more"}));
}

TEST_F(Config_File_Test, RefusalsShowTheirMessage)
{
    EXPECT_EQ(Refusal(With(Bold_Key, ">Gras ")), Box("missing: >Bold"));
    EXPECT_EQ(Refusal(With(20, ">Repete")), Box("missing: >Repeter"));
    EXPECT_EQ(Refusal(With(Transparent, "yes")), Trap("13, Type mismatch"));
    EXPECT_EQ(Refusal(With(Bold, "")), Trap("13, Type mismatch"));
    EXPECT_EQ(Refusal(With(Size, "40000")), Trap("6, Overflow"));
    EXPECT_EQ(Refusal(With(Volume, "-32769")), Trap("6, Overflow"));
    EXPECT_EQ(Refusal(Good_Lines.mid(0, 20)), Trap("62, Input past end of file"));
}

TEST_F(Config_File_Test, BeforeTheLanguageIsLoadedTheTableAsItStandsIsShown)
{
    // Nothing loaded yet: the texts are empty.
    EXPECT_EQ(Refusal(With(1, "< <")), "\n\n");
    EXPECT_EQ(Refusal(With(Version, "0.5B")), "\n\n");
    EXPECT_EQ(Refusal(With(2, "[VERSION] ")), "\n[VERSION]\n");
    // The version is checked before any later line.
    Write(With(Bold_Key, ">Bold").replaceInStrings("0.5b", "0.6"));
    ASSERT_TRUE(texts.Load_Language(folder.Path(), "English"));
    EXPECT_FALSE(Read());
    EXPECT_EQ(boxes.Last_Text(), Box("version"));
    QFile::remove(folder.File("orvan.ini"));
    Text_Table empty;
    EXPECT_FALSE(Read_Config(folder.Path(), settings, empty));
    EXPECT_EQ(boxes.Last_Text(), "\n\n53, File not found\n\n");
}

TEST_F(Config_File_Test, ALanguageRefusalEndsTheReadWithoutAMessageOfItsOwn)
{
    QFile::remove(folder.File("Lang.ini"));
    Write(Good_Lines);
    EXPECT_FALSE(Read());
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(settings.Language_Name, "English");
}

// Every field read lands where the writer takes it from.
TEST_F(Config_File_Test, WritesTheLayoutAndReadsBackTheSameSettings)
{
    ASSERT_TRUE(Accepted(Good_Lines));
    EXPECT_EQ(texts.Get_Text(1009), Closing);
    settings.Subtitle_Color = int32_t(65280);
    ASSERT_TRUE(Write_Config(folder.Path(), settings, 5));
    QStringList expected = With(Color, " 65280 ");
    expected[Volume - 1] = " 5 ";
    const QByteArray written = (expected.join("\r\n") + "\r\n").toUtf8();
    EXPECT_EQ(folder.Read("orvan.ini"), written);
    // Read back and written again, the settings give the same file.
    ASSERT_TRUE(Read());
    EXPECT_EQ(settings.Volume_Setting, 5);
    ASSERT_TRUE(Write_Config(folder.Path(), settings, settings.Volume_Setting));
    EXPECT_EQ(folder.Read("orvan.ini"), written);
}

TEST_F(Config_File_Test, AFailedWriteLeavesTheOldFileWhole)
{
    EXPECT_FALSE(Write_Config(folder.File("missing folder"), settings, 3));
    ASSERT_TRUE(QDir(folder.Path()).mkpath("blocked/orvan.ini/inside"));
    EXPECT_FALSE(Write_Config(folder.File("blocked"), settings, 3));
    EXPECT_TRUE(QDir(folder.File("blocked/orvan.ini/inside")).exists());
    EXPECT_EQ(QDir(folder.File("blocked")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
              QStringList{"orvan.ini"});
}

// The shipped file is the writer's own output and names a shipped language.
TEST(Shipped_Config_File, ReadsAndWritesBackUnchanged)
{
    Orvane::Test::Temp_Folder folder;
    for (const char* name : {"orvan.ini", "Lang.ini"})
        ASSERT_TRUE(QFile::copy(QString(ORVANE_SOURCE_DIR "/resources/") + name, folder.File(name)));
    const QByteArray shipped = folder.Read("orvan.ini");
    Message_Box_Recorder boxes;
    Settings settings;
    Text_Table texts;
    ASSERT_TRUE(Read_Config(folder.Path(), settings, texts));
    EXPECT_EQ(texts.Language_Column(), 1);
    EXPECT_EQ(settings.Subtitle_Font_Size, 24);
    EXPECT_EQ(settings.Subtitle_Color, Subtitle_Color_Value(QString("16777215")));
    ASSERT_TRUE(Write_Config(folder.Path(), settings, settings.Volume_Setting));
    EXPECT_EQ(folder.Read("orvan.ini"), shipped);
}

} // namespace
} // namespace Orvane
