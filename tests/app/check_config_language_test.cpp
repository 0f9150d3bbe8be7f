#include "config/config_file.h"
#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace Orvane {
namespace {

const QString Resources = QStringLiteral(ORVANE_SOURCE_DIR "/resources/");

struct Check_Result {
    int exit_code = -1;
    QStringList lines;
};

Check_Result Run_Orvane_Check(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(ORVANE_BINARY_DIR "/orvane"), QStringList{"--check"} + arguments);
    EXPECT_TRUE(process.waitForFinished(30000));
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    return {process.exitCode(), output.split(u'\n', Qt::SkipEmptyParts)};
}

TEST(Check_Command, ShippedConfigurationFile)
{
    const Check_Result result = Run_Orvane_Check({Resources + "orvan.ini"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.lines,
              (QStringList{"OK", QString::fromUtf8("Language_Name: Français"),
                           "Subtitle_Font_Name: DejaVu Sans", "Subtitle_Font_Size: 24",
                           "Subtitle_Font_Bold: 0", "Subtitle_Font_Italic: 0",
                           "Subtitle_Color: 16777215", "Subtitle_Transparent: 0",
                           "Playlist_Repeat: 0", "CD1_Drive: ", "CD2_Drive: ", "Volume_Setting: 3",
                           "Save_Settings: 1"}));
}

TEST(Check_Command, DamagedConfigurationFileShowsTheBoxInTheLanguageBesideTheProgram)
{
    Orvane::Test::Temp_Folder folder;
    ASSERT_TRUE(QFile::copy(Resources + "orvan.ini", folder.File("orvan.ini")));
    QByteArray bytes = folder.Read("orvan.ini");
    bytes.replace(">Gras\r\n0\r\n", ">Gras\r\nbold\r\n");
    folder.Write("damaged.ini", bytes);

    Text_Table texts;
    ASSERT_TRUE(texts.Load_Language(ORVANE_BINARY_DIR, QString::fromUtf8("Français")));
    const QString expected = "ERROR: " + texts.Get_Text(1010) + " / " + texts.Get_Text(1007) + " / "
        + texts.Get_Text(1008) + "13, Type mismatch / " + texts.Get_Text(1009) + " / " + texts.Get_Text(1009);

    const Check_Result result = Run_Orvane_Check({folder.File("damaged.ini")});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.lines, QStringList{expected});
}

TEST(Check_Command, ShippedLanguageFileInEachLanguage)
{
    Check_Result result = Run_Orvane_Check({Resources + "Lang.ini", "--language", "English"});
    EXPECT_EQ(result.exit_code, 0);
    ASSERT_GT(result.lines.size(), 5);
    EXPECT_EQ(result.lines.mid(0, 5),
              (QStringList{"OK", QString::fromUtf8("languages: Français;English"), "column: 2",
                           "0001 Open", "0002 Play"}));
    EXPECT_EQ(result.lines.back(), "9999 ");  // the last line is never found

    // Without --language: the language of the configuration beside the program.
    Message_Box_Recorder boxes;
    Settings settings;
    Text_Table texts;
    Read_Config(ORVANE_BINARY_DIR, settings, texts);
    result = Run_Orvane_Check({Resources + "Lang.ini"});
    EXPECT_EQ(result.lines.value(2), QStringLiteral("column: %1").arg(texts.Language_Column()));
}

TEST(Check_Command, RefusedLanguageFiles)
{
    Orvane::Test::Temp_Folder folder;
    EXPECT_EQ(Run_Orvane_Check({folder.File("Lang.ini")}).lines, QStringList{"ERROR:"});
    folder.Write("Lang.ini", "0.5\r\n\r\nEnglish\r\n\r\n0001;A\r\n");
    const Check_Result result = Run_Orvane_Check({folder.File("Lang.ini"), "--language", "English"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.lines, QStringList{"ERROR: Error in Lang.ini / The release of Lang.ini is not correct"
                                        " / The application can't continue"});
}

TEST(Check_Command, UnknownKindIsNotUnderstood)
{
    EXPECT_EQ(Run_Orvane_Check({"notes.txt"}).exit_code, 2);
}

} // namespace
} // namespace Orvane
