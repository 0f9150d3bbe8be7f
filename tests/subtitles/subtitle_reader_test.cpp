#include "config/settings.h"
#include "language/text_table.h"
#include "subtitles/subtitle_reader.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>

namespace Orvane {
namespace {

constexpr int Screen_Width = 1280;
const QString Cannot_Read = QStringLiteral("\nThis subtitle file could not be read:\n");

int Bold_Width(const QString& line, int size)
{
    return QFontMetrics(QFont(QStringLiteral("DejaVu Sans"), size, QFont::Bold)).horizontalAdvance(line);
}

class Subtitle_Reader_Test : public testing::Test {
protected:
    Subtitle_Reader_Test()
    {
        const QStringList language{"0.5b", "", "English", "", "1301; is not followed by a valid value.",
                                   "1302;Between 0 and 59.", "1303; : out of order.", "1304;Earlier.", "1305;The same.",
                                   "1310;" + Cannot_Read.trimmed(), "9999;"};
        folder_.Write("Lang.ini", language.join("\r\n").toUtf8());
        EXPECT_TRUE(texts_.Load_Language(folder_.Path(), QStringLiteral("English")));
        settings_.Subtitle_Font_Name = QStringLiteral("DejaVu Sans");
        settings_.Subtitle_Font_Size = 20;
        settings_.Subtitle_Font_Bold = true;
    }

    bool Load(const QStringList& lines, int width = Screen_Width)
    {
        recorder_.Clear();
        return Load_Subtitles(folder_.Write("film.sub", lines.join("\r\n").toUtf8()), settings_, texts_, width, table_);
    }

    // The entries as "time line1/line2", then the header values.
    QStringList Entries() const
    {
        QStringList entries;
        for (const Subtitle_Line& line : table_.Subtitle_Lines)
            entries << line.time + " " + line.line1 + "/" + line.line2;
        const Subtitle_Table& t = table_;
        return entries.mid(1) << t.Subtitle_Title << t.Subtitle_Author << t.Subtitle_Source << t.Subtitle_Program
                              << t.Subtitle_File_Path << t.Subtitle_CD_Track << QString::number(t.Subtitle_Delay);
    }

    Orvane::Test::Temp_Folder folder_;
    Text_Table texts_;
    Settings settings_;
    Subtitle_Table table_;
    Message_Box_Recorder recorder_;
};

TEST_F(Subtitle_Reader_Test, ReadsHeaderValuesEntriesAndTheClosingRecord)
{
    ASSERT_TRUE(Load({"[TITLE]", "Harbour", "[AUTHOR]", "Jane", "[SOURCE]", "DVD", "[PRG]", "Editor",
                      "[FILEPATH]", "C:\\films", "[DELAY]", "59", "[CD TRACK]", "2", "a line that is no tag",
                      "[BEGIN]", "******** START SCRIPT ********", "[00:00:02]", "Hello|World", "[00:00:06]",
                      "a|b|c", "[00:01:30]trailing text ignored", "One line", "[END]", "after the end"}));
    EXPECT_TRUE(recorder_.Boxes().empty());
    EXPECT_EQ(Entries(), QStringList({"00:00:02 Hello/World", "00:00:06 a/b|c", "00:01:30 One line/",
                                      "23:59:59 Fin/Fin", "Harbour", "Jane", "DVD", "Editor", "C:\\films", "2", "59"}));
    EXPECT_EQ(table_.Subtitle_Lines[3].left2, 0);

    // Tags are whole lines with their case; "[BEGIN]", one ignored line and "[END]" give the closing record alone.
    ASSERT_TRUE(Load({"[title]", "[Not a title]", " [TITLE]", "x", "[DELAY]", " 7 s", "[BEGIN]", "[END]", "[END]"}));
    EXPECT_EQ(Entries(), QStringList({"23:59:59 Fin/Fin", "", "", "", "", "", "", "7"}));
    // Only the title is tested for "[".
    ASSERT_TRUE(Load({"[AUTHOR]", "[SOURCE]", "Cinema", "[DELAY]", "not a number", "[BEGIN]", "", "[END]"}));
    EXPECT_EQ(Entries(), QStringList({"23:59:59 Fin/Fin", "", "[SOURCE]", "", "", "", "", "0"}));
}

TEST_F(Subtitle_Reader_Test, EachRefusalShowsItsTextInOneCriticalBox)
{
    const QString delay = "[DELAY] is not followed by a valid value.\nBetween 0 and 59.";
    const std::pair<QStringList, QString> cases[] = {
        {{"[TITLE]", "[AUTHOR]", "Jane", "[BEGIN]", "", "[END]"}, "[TITLE] is not followed by a valid value."},
        {{"[DELAY]", "60", "[BEGIN]", "", "[END]"}, delay},
        {{"[DELAY]", "-1", "[BEGIN]", "", "[END]"}, delay},
        {{"[BEGIN]", "", "[00:61:00]", "a", "[END]"}, "[00:61:00]\n13, Type mismatch"},
        {{"[BEGIN]", "", "[00:00:01]", "a", "[end]", "*** END ***"}, "[end]\n13, Type mismatch"},
        {{"[BEGIN]", "", "[00:00:01]", "a", "[00:00:02]", "b"}, "62, Input past end of file"},
        {{"1", "00:00:01,000 --> 00:00:02,000", "Not this format"}, "62, Input past end of file"},
        {{"[BEGIN]", "", "[00:00:05]", "a", "[00:00:04]", "b", "[END]"}, "00:00:04 : out of order.\nEarlier."},
        {{"[BEGIN]", "", "[00:00:05]", "a", "[00:00:05]", "b", "[END]"}, "00:00:05 : out of order.\nThe same."},
    };
    for (const auto& [lines, detail] : cases) {
        SCOPED_TRACE(lines.join(u' ').toStdString());
        EXPECT_FALSE(Load(lines));
        ASSERT_EQ(recorder_.Boxes().size(), 1u);
        EXPECT_EQ(recorder_.Boxes()[0].style, Box_Style::Critical_Ok);
        EXPECT_EQ(recorder_.Last_Text(), "film.sub" + Cannot_Read + detail);
    }
    EXPECT_EQ(Entries().value(0), "00:00:05 a/") << "a refused table keeps what was read";
    EXPECT_FALSE(Load_Subtitles(folder_.File("missing.sub"), settings_, texts_, Screen_Width, table_, "Shown"));
    EXPECT_EQ(recorder_.Last_Text(), "Shown" + Cannot_Read + "53, File not found");
}

TEST_F(Subtitle_Reader_Test, LinesAreCentredAndShrunkToTheLargestSizeThatFits)
{
    const QString normal = QStringLiteral("The ferry leaves at nine."), wide = QString(400, u'W');
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", normal, "[00:00:02]", wide + u'|' + normal, "[00:00:03]",
                      normal + u'|' + wide, "[END]"}));
    const double normal_left = (Screen_Width - Bold_Width(normal, 20)) / 2.0;
    const double wide_left = (Screen_Width - Bold_Width(wide, 7)) / 2.0;
    ASSERT_LT(wide_left, 0);
    const auto& l = table_.Subtitle_Lines;
    // A line that fits keeps the settings' size; a far too wide one is drawn at 7 points past the screen's edges;
    // the later line of an entry decides its size.
    EXPECT_EQ(QList<int>({l[1].size, l[2].size, l[3].size}), QList<int>({0, 0, 7}));
    for (const auto& [left, expected] : {std::pair(l[1].left1, normal_left), {l[2].left1, wide_left},
                                         {l[2].left2, normal_left}, {l[3].left2, wide_left}})
        EXPECT_NEAR(left, expected, 0.5);

    const QString line = QStringLiteral("Tickets are sold at the kiosk by the harbour");
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", line, "[END]"}, Bold_Width(line, 14)));
    EXPECT_EQ(table_.Subtitle_Lines[1].size, 14) << "the largest size that fits";
}

// A size far beyond any screen is first taken down to the largest the screen
// shows, then each line shrinks as the one-point rule makes it.
TEST_F(Subtitle_Reader_Test, AHugeSizeStartsAtTheScreensHeightAndShrinksAsTheRuleDoes)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    ASSERT_NE(screen, nullptr);
    settings_.Subtitle_Font_Size = 5000;
    const QStringList texts = {"Bienvenue dans Orvane|Welcome to Orvane", "Ce clip a deux pistes audio", "a"};
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", texts[0], "[00:00:04]", texts[1], "[00:00:07]", texts[2],
                      "[END]"}));
    const auto& l = table_.Subtitle_Lines;
    ASSERT_EQ(l.size(), 5u);

    // The short line fits at the largest size shown: an em as tall as the screen.
    const int largest = l[3].size;
    const auto em_pixels = [](int size) { return QFontInfo(QFont(QStringLiteral("DejaVu Sans"), size)).pixelSize(); };
    EXPECT_LE(em_pixels(largest), screen->geometry().height());
    EXPECT_GT(em_pixels(largest + 2), screen->geometry().height());

    const auto one_point_rule = [largest](const QString& line) {
        int size = largest;
        while (Bold_Width(line, size) > Screen_Width && size >= 8)
            --size;
        return size;
    };
    EXPECT_EQ(l[1].size, one_point_rule("Welcome to Orvane"));
    EXPECT_EQ(l[2].size, one_point_rule(texts[1]));
    EXPECT_NEAR(l[2].left1, (Screen_Width - Bold_Width(texts[1], l[2].size)) / 2.0, 0.5);
}

// Files written by other programs: each is read, or refused with one clear box.
TEST_F(Subtitle_Reader_Test, SampleFilesAreReadOrRefusedClearly)
{
    const QDir corpus(QStringLiteral(ORVANE_SOURCE_DIR "/../shared/corpus"));
    if (!corpus.exists())
        GTEST_SKIP() << "no sample files beside the project";
    for (const QString folder : {"subviewer1", "subviewer2"}) {
        const QDir samples(corpus.filePath(folder));
        const QStringList names = samples.entryList({QStringLiteral("*.sub")}, QDir::Files);
        EXPECT_FALSE(names.isEmpty());
        for (const QString& name : names) {
            recorder_.Clear();
            const bool read = Load_Subtitles(samples.filePath(name), settings_, texts_, Screen_Width, table_);
            SCOPED_TRACE(name.toStdString() + ": " + recorder_.Last_Text().toStdString());
            if (read) {
                // The other ".sub" layout is never taken for this one.
                EXPECT_EQ(folder, "subviewer1");
                EXPECT_TRUE(recorder_.Boxes().empty());
                EXPECT_GT(table_.Subtitle_Lines.size(), 1u);
                continue;
            }
            // A refusal names the file and says why, in one box.
            ASSERT_EQ(recorder_.Boxes().size(), 1u);
            EXPECT_TRUE(recorder_.Last_Text().startsWith(name + Cannot_Read));
            EXPECT_FALSE(recorder_.Last_Text().endsWith(u'\n'));
        }
    }
}

} // namespace
} // namespace Orvane
