// The subtitle file: read into the table, its lines laid out for the screen
// (with the fast search for a line's size), and the entries found by time.
#include "config/settings.h"
#include "language/text_table.h"
#include "subtitles/line_fit.h"
#include "subtitles/subtitle_reader.h"
#include "subtitles/subtitle_timing.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>

#include <cmath>
#include <functional>
#include <tuple>

namespace Orvane {
namespace {

constexpr int Screen_Width = 1280;
const QString Cannot_Read = QStringLiteral("\nThis subtitle file could not be read:\n");

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

    bool Load(const QStringList& lines)
    {
        recorder_.Clear();
        return Load_Subtitles(folder_.Write("film.sub", lines.join("\r\n").toUtf8()), settings_, texts_, Screen_Width,
                              table_);
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

TEST_F(Subtitle_Reader_Test, LinesAreCentredAndShrunkDownToSevenPointsTheLaterLineDeciding)
{
    const QString normal = QStringLiteral("The ferry leaves at nine."), wide = QString(400, u'W');
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", normal, "[00:00:02]", wide + u'|' + normal, "[00:00:03]",
                      normal + u'|' + wide, "[END]"}));
    const auto left_at = [](const QString& line, int size) {
        return (Screen_Width - QFontMetrics(QFont("DejaVu Sans", size, QFont::Bold)).horizontalAdvance(line)) / 2.0;
    };
    const double normal_left = left_at(normal, 20), wide_left = left_at(wide, 7);
    ASSERT_LT(wide_left, 0);
    const auto& l = table_.Subtitle_Lines;
    // A line that fits keeps the settings' size; a far too wide one is drawn at 7 points past the screen's edges;
    // the later line of an entry decides its size.
    EXPECT_EQ(QList<int>({l[1].size, l[2].size, l[3].size}), QList<int>({0, 0, 7}));
    for (const auto& [left, expected] : {std::pair(l[1].left1, normal_left), {l[2].left1, wide_left},
                                         {l[2].left2, normal_left}, {l[3].left2, wide_left}})
        EXPECT_NEAR(left, expected, 0.5);
}

// A size far beyond any screen first comes down to the largest the screen
// shows: an em as tall as the screen.
TEST_F(Subtitle_Reader_Test, AHugeSizeStartsAtTheScreensHeight)
{
    settings_.Subtitle_Font_Size = 5000;
    ASSERT_TRUE(Load({"[BEGIN]", "", "[00:00:01]", "a", "[END]"}));
    const auto em_pixels = [](int size) { return QFontInfo(QFont(QStringLiteral("DejaVu Sans"), size)).pixelSize(); };
    const int screen_height = QGuiApplication::primaryScreen()->geometry().height();
    EXPECT_LE(em_pixels(table_.Subtitle_Lines[1].size), screen_height);
    EXPECT_GT(em_pixels(table_.Subtitle_Lines[1].size + 2), screen_height);
}

// The rule as written: one point at a time.
Fitted_Line One_Point_Rule(int size, int available_width, const std::function<int(int)>& width_at)
{
    while (width_at(size) > available_width && size >= 8)
        --size;
    return {size, width_at(size)};
}

// The fast search for a line's size against the rule it replaces, on width
// rules of every shape (the reader's tests above run it on real fonts).
TEST(Fit_Line, FindsTheSizeTheOnePointRuleReachesInAHandfulOfMeasurements)
{
    const std::pair<const char*, std::function<int(int)>> width_rules[] = {
        {"proportional, wide", [](int size) { return 33 * size; }},
        {"rounded glyph advances", [](int size) { return 12 * int(std::lround(size * 0.6)); }},
        {"a large fixed margin", [](int size) { return 900 + 2 * size; }},
        {"in steps of five points", [](int size) { return 40 * (size / 5); }},
        {"growing faster than the size", [](int size) { return size * size / 4; }},
        {"the same at every size", [](int) { return 700; }},
    };
    for (const auto& [what, width_at] : width_rules) {
        for (const int available : {0, 1, 64, 640, 1280, 20000}) {
            SCOPED_TRACE(std::string(what) + ", available width " + std::to_string(available));
            for (int step = -2; step <= 401; ++step) {
                const int start = step <= 400 ? step : 32767;  // every size up to 400, and the largest
                int measurements = 0;
                const Fitted_Line fast = Fit_Line(start, available, [&](int size) {
                    ++measurements;
                    return width_at(size);
                });
                const Fitted_Line slow = One_Point_Rule(start, available, width_at);
                EXPECT_EQ(std::pair(fast.size, fast.width), std::pair(slow.size, slow.width)) << "from " << start;
                // An estimate, doubling steps and halving: about twice log2 of the range.
                EXPECT_LE(measurements, 34) << "from " << start;
                if (HasFailure())
                    return;  // one failing start says enough
            }
        }
    }
}

TEST(Subtitle_Timing, FindsTheFirstEntryAtOrAfterTheTimeAndNeverTheClosingRecord)
{
    Subtitle_Table film;
    film.Subtitle_Lines = {{}, {"00:00:10", "First", "", 0, 0, 0}, {"00:01:00", "Second", "two", 0, 0, 0},
                           {"01:00:00", "Third", "", 0, 0, 0}, {"23:59:59", "Fin", "Fin", 0, 0, 0}};
    const Subtitle_Delay_Choice none{}, five{true, 5}, five_off{false, 5};
    const std::tuple<const char*, Subtitle_Delay_Choice, int> cases[] = {
        {"00:00:00", none, 1}, {"00:00:10", none, 1}, {"00:00:11", none, 2}, {"00:59:59", none, 3},
        {"0:1:0", none, 2}, {"9:00:00", none, 0},  // compared as times: "9:00:00" sorts first as text
        {"01:00:01", none, 0}, {"23:59:59", none, 0}, {"Aucun", none, 0}, {"00:01:03", five, 2},
        {"00:01:03", five_off, 3}, {"00:00:15", five, 1}, {"00:00:16", five, 2}, {"01:00:06", five, 0},
    };
    for (const auto& [time, delay, expected] : cases)
        EXPECT_EQ(Find_Subtitle(film, time, delay), expected) << time;
    EXPECT_EQ(Find_Subtitle(Subtitle_Table(), "00:00:00", none), 0) << "a refused file leaves no closing record";

    const Subtitle_Delay_Choice minute{true, 60};  // the most the delay buttons reach
    const std::tuple<int, Subtitle_Delay_Choice, const char*> starts[] = {
        {2, five, "00:01:05"}, {2, five_off, "00:01:00"}, {1, minute, "00:01:10"}, {0, none, ""}, {5, none, ""}};
    for (const auto& [entry, delay, start] : starts)
        EXPECT_EQ(Subtitle_Start_Time(film, entry, delay), start) << entry;
    EXPECT_EQ(QStringList({Subtitle_Line1(film, 2), Subtitle_Line2(film, 2), Subtitle_Line1(film, 5),
                           Subtitle_Line2(film, -1)}), QStringList({"Second", "two", "", ""}));
}

} // namespace
} // namespace Orvane
