#include "config/settings.h"
#include "language/text_table.h"
#include "subtitles/subtitle_reader.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFont>
#include <QFontMetrics>

namespace Orvane {
namespace {

constexpr int Screen_Width = 1280;

QByteArray Crlf_Lines(const QStringList& lines)
{
    return (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
}

// A language file of the reader's texts, in one language.
Text_Table Subtitle_Texts(const Test::Temp_Folder& folder)
{
    folder.Write(QStringLiteral("Lang.ini"),
                 Crlf_Lines({"0.5b", "", "English", "",
                             "1301; is not followed by a valid value.",
                             "1302;The delay must be between 0 and 59 seconds.",
                             "1303; : time out of order.",
                             "1304;It is earlier than the time of the line before.",
                             "1305;It is the same as the time of the line before.",
                             "1310;This subtitle file could not be read:",
                             "9999;never looked up"}));
    Text_Table texts;
    EXPECT_TRUE(texts.Load_Language(folder.Path(), QStringLiteral("English")));
    return texts;
}

Settings Subtitle_Settings()
{
    Settings settings;
    settings.Subtitle_Font_Name = QStringLiteral("DejaVu Sans");
    settings.Subtitle_Font_Size = 20;
    return settings;
}

int Width_At(const Settings& settings, const QString& line, int size)
{
    QFont font(settings.Subtitle_Font_Name);
    font.setBold(settings.Subtitle_Font_Bold);
    font.setItalic(settings.Subtitle_Font_Italic);
    font.setPointSize(size);
    return QFontMetrics(font).horizontalAdvance(line);
}

class Subtitle_Reader_Test : public testing::Test {
protected:
    // Writes the lines as a ".sub" file and reads it; boxes go to the recorder.
    bool Load(const QStringList& lines, const QString& shown_name = {}, int width = Screen_Width)
    {
        const QString path = folder_.Write(QStringLiteral("film.sub"), Crlf_Lines(lines));
        return Load_Subtitles(path, settings_, texts_, width, table_, shown_name);
    }

    // Reads a file that must be refused and returns the detail of its one box.
    QString Refusal_Detail(const QStringList& lines)
    {
        recorder_.Clear();
        EXPECT_FALSE(Load(lines));
        EXPECT_EQ(recorder_.Boxes().size(), 1u);
        if (recorder_.Boxes().empty())
            return {};
        EXPECT_EQ(recorder_.Boxes()[0].style, Box_Style::Critical_Ok);
        const QString prefix = QStringLiteral("film.sub\nThis subtitle file could not be read:\n");
        const QString text = recorder_.Last_Text();
        EXPECT_TRUE(text.startsWith(prefix)) << text.toStdString();
        return text.mid(prefix.size());
    }

    Orvane::Test::Temp_Folder folder_;
    Text_Table texts_ = Subtitle_Texts(folder_);
    Settings settings_ = Subtitle_Settings();
    Subtitle_Table table_;
    Message_Box_Recorder recorder_;
};

TEST_F(Subtitle_Reader_Test, ReadsHeaderValuesEntriesAndTheClosingRecord)
{
    ASSERT_TRUE(Load({"[TITLE]", "Harbour walk", "[AUTHOR]", "Jane", "[SOURCE]", "DVD", "[PRG]", "Editor",
                      "[FILEPATH]", "C:\\films", "[DELAY]", "59", "[CD TRACK]", "2", "a line that is no tag",
                      "[BEGIN]", "******** START SCRIPT ********",
                      "[00:00:02]", "Hello|World",
                      "[00:00:06]", "a|b|c",
                      "[00:01:30]trailing text ignored", "Only one line",
                      "[END]", "anything after the end"}));
    EXPECT_TRUE(recorder_.Boxes().empty());
    EXPECT_EQ(table_.Subtitle_Title, "Harbour walk");
    EXPECT_EQ(table_.Subtitle_Author, "Jane");
    EXPECT_EQ(table_.Subtitle_Source, "DVD");
    EXPECT_EQ(table_.Subtitle_Program, "Editor");
    EXPECT_EQ(table_.Subtitle_File_Path, "C:\\films");
    EXPECT_EQ(table_.Subtitle_Delay, 59);
    EXPECT_EQ(table_.Subtitle_CD_Track, "2");

    ASSERT_EQ(table_.Subtitle_Lines.size(), 5u);  // index 0 unused, three entries, the closing record
    EXPECT_EQ(table_.Subtitle_Lines[1].time, "00:00:02");
    EXPECT_EQ(table_.Subtitle_Lines[1].line1, "Hello");
    EXPECT_EQ(table_.Subtitle_Lines[1].line2, "World");
    EXPECT_EQ(table_.Subtitle_Lines[2].line1, "a");
    EXPECT_EQ(table_.Subtitle_Lines[2].line2, "b|c");
    EXPECT_EQ(table_.Subtitle_Lines[3].time, "00:01:30");
    EXPECT_EQ(table_.Subtitle_Lines[3].line1, "Only one line");
    EXPECT_EQ(table_.Subtitle_Lines[3].line2, "");
    EXPECT_EQ(table_.Subtitle_Lines[3].left2, 0);
    const Subtitle_Line& closing = table_.Subtitle_Lines[4];
    EXPECT_EQ(closing.time, "23:59:59");
    EXPECT_EQ(closing.line1, "Fin");
    EXPECT_EQ(closing.line2, "Fin");
}

TEST_F(Subtitle_Reader_Test, HeaderRulesAndAnEmptyBody)
{
    // Tags are whole lines compared with their case; missing tags stay empty;
    // "[BEGIN]", one ignored line and "[END]" give only the closing record.
    ASSERT_TRUE(Load({"[title]", "[Not a title]", " [TITLE]", "x", "[DELAY]", "  7 seconds", "[BEGIN]", "[END]",
                      "[END]"}));
    EXPECT_EQ(table_.Subtitle_Title, "");
    EXPECT_EQ(table_.Subtitle_Delay, 7);
    ASSERT_EQ(table_.Subtitle_Lines.size(), 2u);
    EXPECT_EQ(table_.Subtitle_Lines[1].time, "23:59:59");

    // A value line that is itself a tag is taken as the value, except after
    // "[TITLE]", where the title test catches it; the tag's value line is
    // then an ignored header line.
    ASSERT_TRUE(Load({"[AUTHOR]", "[SOURCE]", "Cinema", "[DELAY]", "not a number", "[BEGIN]", "", "[END]"}));
    EXPECT_EQ(table_.Subtitle_Author, "[SOURCE]");
    EXPECT_EQ(table_.Subtitle_Source, "");
    EXPECT_EQ(table_.Subtitle_Delay, 0);

    // A new file starts from an empty table.
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", "one", "[END]"}));
    EXPECT_EQ(table_.Subtitle_Author, "");
    EXPECT_EQ(table_.Subtitle_Lines.size(), 3u);
}

TEST_F(Subtitle_Reader_Test, EachRefusalShowsItsTextInOneCriticalBox)
{
    EXPECT_EQ(Refusal_Detail({"[TITLE]", "[AUTHOR]", "Jane", "[BEGIN]", "", "[END]"}),
              "[TITLE] is not followed by a valid value.");
    EXPECT_EQ(Refusal_Detail({"[DELAY]", "60", "[BEGIN]", "", "[END]"}),
              "[DELAY] is not followed by a valid value.\nThe delay must be between 0 and 59 seconds.");
    EXPECT_EQ(Refusal_Detail({"[DELAY]", "-1", "[BEGIN]", "", "[END]"}),
              "[DELAY] is not followed by a valid value.\nThe delay must be between 0 and 59 seconds.");
    EXPECT_EQ(Refusal_Detail({"[BEGIN]", "", "[00:00:05]", "a", "[00:00:04]", "b", "[END]"}),
              "00:00:04 : time out of order.\nIt is earlier than the time of the line before.");
    EXPECT_EQ(Refusal_Detail({"[BEGIN]", "", "[00:00:05]", "a", "[00:00:05]", "b", "[END]"}),
              "00:00:05 : time out of order.\nIt is the same as the time of the line before.");
    // A table refused part-way keeps what was read.
    EXPECT_EQ(table_.Subtitle_Lines[1].line1, "a");

    // An impossible time, and an end tag in the wrong case read as a time line.
    EXPECT_EQ(Refusal_Detail({"[BEGIN]", "", "[00:61:00]", "a", "[END]"}), "[00:61:00]\n13, Type mismatch");
    EXPECT_EQ(Refusal_Detail({"[BEGIN]", "", "[00:00:01]", "a", "[end]", "******** END SCRIPT ********"}),
              "[end]\n13, Type mismatch");

    // Files that end too soon: no "[END]", no "[BEGIN]", a tag without its value.
    EXPECT_EQ(Refusal_Detail({"[BEGIN]", "", "[00:00:01]", "a", "[00:00:02]", "b"}),
              "62, Input past end of file");
    EXPECT_EQ(Refusal_Detail({"1", "00:00:01,000 --> 00:00:02,000", "Not this format"}),
              "62, Input past end of file");
    EXPECT_EQ(Refusal_Detail({"[TITLE]"}), "62, Input past end of file");
    EXPECT_EQ(Refusal_Detail({}), "62, Input past end of file");

    recorder_.Clear();
    EXPECT_FALSE(Load_Subtitles(folder_.File(QStringLiteral("missing.sub")), settings_, texts_, Screen_Width,
                                table_, QStringLiteral("Shown name")));
    EXPECT_EQ(recorder_.Last_Text(), "Shown name\nThis subtitle file could not be read:\n53, File not found");
}

TEST_F(Subtitle_Reader_Test, LinesAreCentredAndShrunkToFitTheScreen)
{
    settings_.Subtitle_Font_Bold = true;
    const QString normal = QStringLiteral("The ferry leaves at nine.");
    const QString wide = QString(400, u'W');
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", normal, "[00:00:02]", wide + u'|' + normal,
                      "[00:00:03]", normal + u'|' + wide, "[END]"}));

    // A line that fits keeps the settings' size: size 0, centred.
    const Subtitle_Line& fitting = table_.Subtitle_Lines[1];
    EXPECT_EQ(fitting.size, 0);
    const int normal_width = Width_At(settings_, normal, 20);
    ASSERT_LT(normal_width, Screen_Width);
    EXPECT_NEAR(fitting.left1, (Screen_Width - normal_width) / 2.0, 0.5);

    // Far too wide: drawn at 7 points, starting left of the screen.
    const int wide_width = Width_At(settings_, wide, 7);
    ASSERT_GT(wide_width, Screen_Width);
    const Subtitle_Line& wide_first = table_.Subtitle_Lines[2];
    EXPECT_LT(wide_first.left1, 0);
    EXPECT_NEAR(wide_first.left1, (Screen_Width - wide_width) / 2.0, 0.5);
    // The later line decides the entry's size.
    EXPECT_EQ(wide_first.size, 0);
    EXPECT_NEAR(wide_first.left2, (Screen_Width - normal_width) / 2.0, 0.5);
    const Subtitle_Line& wide_second = table_.Subtitle_Lines[3];
    EXPECT_EQ(wide_second.size, 7);
    EXPECT_NEAR(wide_second.left2, (Screen_Width - wide_width) / 2.0, 0.5);
}

TEST_F(Subtitle_Reader_Test, AShrunkLineTakesTheLargestSizeThatFits)
{
    const QString line = QStringLiteral("Tickets are sold at the kiosk by the harbour");
    const int narrow_screen = Width_At(settings_, line, 14) + 1;
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", line, "[END]"}, {}, narrow_screen));
    const int size = table_.Subtitle_Lines[1].size;
    ASSERT_GT(size, 7);
    ASSERT_LT(size, 20);
    EXPECT_LE(Width_At(settings_, line, size), narrow_screen);
    EXPECT_GT(Width_At(settings_, line, size + 1), narrow_screen);
    EXPECT_NEAR(table_.Subtitle_Lines[1].left1, (narrow_screen - Width_At(settings_, line, size)) / 2.0, 0.5);
}

// Files written by other people and other programs: each is read or refused
// with one clear box.
TEST_F(Subtitle_Reader_Test, SampleFilesAreReadOrRefusedClearly)
{
    const QDir corpus(QStringLiteral(ORVANE_SOURCE_DIR "/../shared/corpus"));
    if (!corpus.exists())
        GTEST_SKIP() << "no sample files beside the project";
    int files = 0;
    for (const QString& folder : {QStringLiteral("subviewer1"), QStringLiteral("subviewer2")}) {
        const QDir samples(corpus.filePath(folder));
        for (const QString& name : samples.entryList({QStringLiteral("*.sub")}, QDir::Files)) {
            ++files;
            recorder_.Clear();
            const bool read = Load_Subtitles(samples.filePath(name), settings_, texts_, Screen_Width, table_);
            // The other ".sub" layout is never taken for this one.
            if (folder == QLatin1String("subviewer2")) {
                EXPECT_FALSE(read) << name.toStdString();
            }
            if (read) {
                EXPECT_TRUE(recorder_.Boxes().empty()) << name.toStdString();
                EXPECT_EQ(table_.Subtitle_Lines.back().time, "23:59:59") << name.toStdString();
                continue;
            }
            ASSERT_EQ(recorder_.Boxes().size(), 1u) << name.toStdString();
            const QString text = recorder_.Last_Text();
            EXPECT_TRUE(text.startsWith(name + "\nThis subtitle file could not be read:\n")) << text.toStdString();
            EXPECT_GT(text.section(u'\n', 2).size(), 0) << name.toStdString();
        }
    }
    EXPECT_GT(files, 0);
}

} // namespace
} // namespace Orvane
