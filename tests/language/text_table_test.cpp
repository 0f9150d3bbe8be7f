#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Orvane {
namespace {

class Text_Table_Test : public testing::Test {
protected:
    void Write(const QStringList& lines) { folder.Write("Lang.ini", (lines.join("\r\n") + "\r\n").toUtf8()); }
    // The header with the given language list, then the text lines.
    bool Load(const QString& language, const QString& names, const QStringList& text_lines)
    {
        Write(QStringList{"0.5b", "", names, ""} + text_lines);
        return texts.Load_Language(folder.Path(), language);
    }

    Orvane::Test::Temp_Folder folder;
    Message_Box_Recorder boxes;
    Text_Table texts;
};

TEST_F(Text_Table_Test, EachLanguageReadsItsColumnTheLastLineIsNeverFoundAndTheSearchKeepsItsQuirks)
{
    const QStringList lines = {"# comment", "", "0005;A;B", "0005;C;D", "0006;E;F", "0007;last;x"};
    ASSERT_TRUE(Load("English", "Français;English", lines));
    EXPECT_EQ(texts.Get_Text(5), "B");  // the first of two equal numbers
    EXPECT_EQ(texts.Get_Text(6), "F");
    EXPECT_EQ(texts.Get_Text(7), "");
    EXPECT_EQ(texts.Records().size(), 4u);  // comments and empty lines take no index
    ASSERT_TRUE(texts.Load_Language(folder.Path(), "Français"));
    EXPECT_EQ(texts.Get_Text(5), "A");

    // Kept quirks of the column search.
    const std::tuple<const char*, const char*, int16_t, const char*> cases[] = {
        {"a", "a;b;c", 101, ";Other"},  // the end search starts one past the start
        {"c", "a;b;c", 102, "0102"},    // a failed search: the next starts at 1
        {"c", "a;b;c", 103, "C"},
        {"unknown", "a;b;c", 102, "A"},  // the column after the last, wrapped back to the first
        {"unknown", "a;b;c", 103, "0103"},
        {"", "a;b;", 103, "C"}};  // a trailing ";" adds an empty name
    for (const auto& [language, names, number, text] : cases) {
        ASSERT_TRUE(Load(language, names, {"0101;;Other", "0102;A;B", "0103;A;B;C", "9999;end"}));
        EXPECT_EQ(texts.Get_Text(number), text) << language << " " << number;
    }
}

TEST_F(Text_Table_Test, RefusalsShowTheirBoxOrNone)
{
    EXPECT_FALSE(texts.Load_Language(folder.Path(), "a"));  // no file
    EXPECT_TRUE(boxes.Boxes().empty());
    // A refused reload keeps what it did not rebuild.
    ASSERT_TRUE(Load("a", "a", {"0001;kept", "9999;end"}));
    Write({"0.4", "", "b", "", "0001;new", "9999;end"});
    EXPECT_FALSE(texts.Load_Language(folder.Path(), "b"));
    EXPECT_EQ(texts.Get_Text(1), "kept");
    const std::pair<QStringList, QString> refused[] = {
        {{"0.5b", "x", "a", "", "0001;A", "9999;end"}, ""},
        {{"0.5b", "", "a", " ", "0001;A", "9999;end"}, ""},
        {{"0.5B", "", "a", "", "0001;A", "9999;end"}, "The release of Lang.ini is not correct"},
        {{"0.5b", "", "a", ""}, "Lang.ini ends at line 4, before its first text line"},
        {{"0.5b", "", "a", "", "0001;A", "x001;B", "9999;end"},
         "Line 6 of Lang.ini does not begin with a text number"},
        {{"0.5b", "", "a", "", "0001"}, "Line 5 of Lang.ini is too short to hold a text"}};
    for (const auto& [lines, detail] : refused) {
        SCOPED_TRACE(lines.join(" | ").toStdString());
        boxes.Clear();
        Write(lines);
        EXPECT_FALSE(texts.Load_Language(folder.Path(), "a"));
        EXPECT_LE(boxes.Boxes().size(), 1u);
        EXPECT_EQ(boxes.Last_Text(),
                  detail.isEmpty() ? "" : "Error in Lang.ini\n" + detail + "\nThe application can't continue");
    }
}

// Every number the program asks for has a wording in every language, and a
// sentinel that nothing asks for comes last.
TEST(Shipped_Language_File, HoldsEveryTextInEveryLanguage)
{
    const std::pair<int, int> ranges[] = {{1, 13}, {101, 104}, {301, 319}, {401, 403}, {501, 511},
        {601, 610}, {701, 704}, {801, 806}, {901, 904}, {1002, 1002}, {1004, 1012}, {1101, 1102},
        {1208, 1208}, {1210, 1210}, {1301, 1305}, {1310, 1310}};
    Message_Box_Recorder boxes;
    for (const QString language : {"Français", "English"}) {
        Text_Table texts;
        ASSERT_TRUE(texts.Load_Language(ORVANE_SOURCE_DIR "/resources", language));
        for (const auto& [first, last] : ranges)
            for (int number = first; number <= last; ++number)
                EXPECT_FALSE(texts.Get_Text(int16_t(number)).isEmpty()) << number;
        EXPECT_TRUE(texts.Get_Text(701).endsWith(u'('));
        for (const auto& record : texts.Records())
            EXPECT_FALSE(record.text.startsWith(u';')) << record.number;  // an empty text
        EXPECT_EQ(texts.Records().back().number, 9999);
    }
    EXPECT_TRUE(boxes.Boxes().empty());
}

} // namespace
} // namespace Orvane
