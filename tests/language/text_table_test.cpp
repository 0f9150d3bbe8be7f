#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

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
    // The box shown when lines are refused.
    QString Refusal(const QStringList& lines)
    {
        boxes.Clear();
        Write(lines);
        EXPECT_FALSE(texts.Load_Language(folder.Path(), "a"));
        EXPECT_EQ(boxes.Boxes().size(), 1u);
        return boxes.Last_Text();
    }
    static QString Box(const QString& detail)
    {
        return "Error in Lang.ini\n" + detail + "\nThe application can't continue";
    }

    Orvane::Test::Temp_Folder folder;
    Message_Box_Recorder boxes;
    Text_Table texts;
};

TEST_F(Text_Table_Test, EachLanguageReadsItsColumnAndTheLastLineIsNeverFound)
{
    const QStringList lines = {"# comment", "", "0005;A;B", "0005;C;D", "0006;E;F", "0007;last;x"};
    ASSERT_TRUE(Load("English", QString::fromUtf8("Français;English"), lines));
    EXPECT_EQ(texts.Language_Names(), (QStringList{QString::fromUtf8("Français"), "English"}));
    EXPECT_EQ(texts.Language_Column(), 2);
    EXPECT_EQ(texts.Get_Text(5), "B");  // the first of two equal numbers
    EXPECT_EQ(texts.Get_Text(6), "F");
    EXPECT_EQ(texts.Get_Text(7), "");
    EXPECT_EQ(texts.Records().size(), 4u);  // comments and empty lines take no index
    ASSERT_TRUE(texts.Load_Language(folder.Path(), QString::fromUtf8("Français")));
    EXPECT_EQ(texts.Get_Text(5), "A");
    EXPECT_TRUE(boxes.Boxes().empty());
}

TEST_F(Text_Table_Test, KeptQuirksOfTheColumnSearch)
{
    const QStringList lines = {"0101;;Other", "0102;A;B", "0103;A;B;C", "9999;end"};
    ASSERT_TRUE(Load("a", "a;b;c", lines));
    EXPECT_EQ(texts.Get_Text(101), ";Other");  // the end search starts one past the start
    ASSERT_TRUE(Load("c", "a;b;c", lines));
    EXPECT_EQ(texts.Get_Text(102), "0102");  // a failed search: the next starts at 1
    EXPECT_EQ(texts.Get_Text(103), "C");
    ASSERT_TRUE(Load("unknown", "a;b;c", lines));
    EXPECT_EQ(texts.Language_Column(), 4);
    EXPECT_EQ(texts.Get_Text(102), "A");  // wrapped back to the first column
    EXPECT_EQ(texts.Get_Text(103), "0103");
    ASSERT_TRUE(Load("", "a;b;", lines));  // a trailing ";" adds an empty name
    EXPECT_EQ(texts.Language_Names(), (QStringList{"a", "b", ""}));
    EXPECT_EQ(texts.Get_Text(103), "C");
}

TEST_F(Text_Table_Test, Refusals)
{
    EXPECT_FALSE(texts.Load_Language(folder.Path(), "a"));  // no file
    Write({"0.5b", "x", "a", "", "0001;A", "9999;end"});
    EXPECT_FALSE(texts.Load_Language(folder.Path(), "a"));
    Write({"0.5b", "", "a", " ", "0001;A", "9999;end"});
    EXPECT_FALSE(texts.Load_Language(folder.Path(), "a"));
    EXPECT_TRUE(boxes.Boxes().empty());

    EXPECT_EQ(Refusal({"0.5B", "", "a", "", "0001;A", "9999;end"}),
              Box("The release of Lang.ini is not correct"));
    EXPECT_EQ(Refusal({"0.5b", "", "a", ""}), Box("Lang.ini ends at line 4, before its first text line"));
    EXPECT_EQ(Refusal({"0.5b", "", "a", "", "0001;A", "x001;B", "9999;end"}),
              Box("Line 6 of Lang.ini does not begin with a text number"));
    EXPECT_EQ(Refusal({"0.5b", "", "a", "", "0001"}), Box("Line 5 of Lang.ini is too short to hold a text"));
}

TEST_F(Text_Table_Test, AFailedReloadKeepsWhatWasNotRebuilt)
{
    ASSERT_TRUE(Load("a", "a", {"0001;kept", "9999;end"}));
    Write({"0.4", "", "b", "", "0001;new", "9999;end"});
    EXPECT_FALSE(texts.Load_Language(folder.Path(), "b"));
    EXPECT_EQ(texts.Get_Text(1), "kept");
}

// The shipped file has a wording for every number the program asks for, in
// every language, and a sentinel that nothing asks for comes last.
TEST(Shipped_Language_File, HoldsEveryTextInEveryLanguage)
{
    const std::pair<int, int> ranges[] = {{1, 13}, {101, 104}, {301, 319}, {401, 403}, {501, 511},
        {601, 610}, {701, 704}, {801, 806}, {901, 904}, {1002, 1002}, {1004, 1012}, {1101, 1102},
        {1208, 1208}, {1210, 1210}, {1301, 1305}, {1310, 1310}};
    Message_Box_Recorder boxes;
    for (const QString& language : {QString::fromUtf8("Français"), QStringLiteral("English")}) {
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
