#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

const QString Box_Start = QStringLiteral("Error in Lang.ini\n");
const QString Box_End = QStringLiteral("\nThe application can't continue");

class Text_Table_Test : public testing::Test {
protected:
    // Writes Lang.ini with CR LF line ends.
    void Write(const QStringList& lines)
    {
        folder.Write("Lang.ini", (lines.join("\r\n") + "\r\n").toUtf8());
    }
    // The header with the given language list, then the text lines.
    void Write_Texts(const QString& names, const QStringList& text_lines)
    {
        Write(QStringList{"0.5b", "", names, ""} + text_lines);
    }
    bool Load(const QString& language) { return texts.Load_Language(folder.Path(), language); }

    Orvane::Test::Temp_Folder folder;
    Message_Box_Recorder boxes;
    Text_Table texts;
};

TEST_F(Text_Table_Test, EachLanguageReadsItsOwnColumn)
{
    Write_Texts(QString::fromUtf8("Français;English"),
                {"# comment", "", "0005;A;B", "0006;C;D", "9999;Fin;End"});
    ASSERT_TRUE(Load(QString::fromUtf8("Français")));
    EXPECT_EQ(texts.Language_Names(), (QStringList{QString::fromUtf8("Français"), "English"}));
    EXPECT_EQ(texts.Language_Column(), 1);
    EXPECT_EQ(texts.Get_Text(5), "A");
    EXPECT_EQ(texts.Get_Text(6), "C");
    EXPECT_EQ(texts.Records().size(), 3u);  // comments and empty lines take no index
    ASSERT_TRUE(Load("English"));
    EXPECT_EQ(texts.Language_Column(), 2);
    EXPECT_EQ(texts.Get_Text(5), "B");
    EXPECT_EQ(texts.Get_Text(7), "");
    EXPECT_TRUE(boxes.Boxes().empty());
}

TEST_F(Text_Table_Test, LookupSkipsTheLastLineAndTheFirstDuplicateWins)
{
    Write_Texts("One", {"0001;first", "0001;second", "0002;only on the last line"});
    ASSERT_TRUE(Load("One"));
    EXPECT_EQ(texts.Get_Text(1), "first");
    EXPECT_EQ(texts.Get_Text(2), "");
    EXPECT_EQ(texts.Records().back().text, "only on the last line");
}

TEST_F(Text_Table_Test, KeptQuirksOfTheColumnSearch)
{
    // Three languages; an unknown one reads the fourth column.
    Write_Texts("a;b;c", {"0101;;Other", "0102;A;B", "0103;A;B;C", "9999;end"});
    ASSERT_TRUE(Load("a"));
    EXPECT_EQ(texts.Get_Text(101), ";Other");  // the end search starts one past the start
    ASSERT_TRUE(Load("c"));
    EXPECT_EQ(texts.Get_Text(102), "0102");  // failed search: the next starts at 1
    EXPECT_EQ(texts.Get_Text(103), "C");
    ASSERT_TRUE(Load("unknown"));
    EXPECT_EQ(texts.Language_Column(), 4);
    EXPECT_EQ(texts.Get_Text(102), "A");      // wrapped back to the first column
    EXPECT_EQ(texts.Get_Text(103), "0103");
}

TEST_F(Text_Table_Test, TrailingSeparatorAddsAnEmptyLanguage)
{
    Write_Texts("a;b;", {"0001;A;B;C", "9999;end"});
    ASSERT_TRUE(Load(""));
    EXPECT_EQ(texts.Language_Names(), (QStringList{"a", "b", ""}));
    EXPECT_EQ(texts.Language_Column(), 3);
    EXPECT_EQ(texts.Get_Text(1), "C");
}

TEST_F(Text_Table_Test, SilentRefusals)
{
    EXPECT_FALSE(Load("a"));  // no file
    Write({"0.5b", "x", "a", "", "0001;A", "9999;end"});
    EXPECT_FALSE(Load("a"));
    Write({"0.5b", "", "a", " ", "0001;A", "9999;end"});
    EXPECT_FALSE(Load("a"));
    EXPECT_TRUE(boxes.Boxes().empty());
}

TEST_F(Text_Table_Test, RefusalsWithTheBox)
{
    const auto refusal = [&](const QStringList& lines) {
        boxes.Clear();
        Write(lines);
        EXPECT_FALSE(Load("a"));
        EXPECT_EQ(boxes.Boxes().size(), 1u);
        return boxes.Last_Text();
    };
    EXPECT_EQ(refusal({"0.5B", "", "a", "", "0001;A", "9999;end"}),
              Box_Start + "The release of Lang.ini is not correct" + Box_End);
    EXPECT_EQ(refusal({"0.5b", "", "a", ""}),
              Box_Start + "Lang.ini ends at line 4, before its first text line" + Box_End);
    EXPECT_EQ(refusal({"0.5b"}),
              Box_Start + "Lang.ini ends at line 1, before its first text line" + Box_End);
    EXPECT_EQ(refusal({"0.5b", "", "a", "", "0001;A", "x001;B", "9999;end"}),
              Box_Start + "Line 6 of Lang.ini does not begin with a text number" + Box_End);
    EXPECT_EQ(refusal({"0.5b", "", "a", "", "0001"}),
              Box_Start + "Line 5 of Lang.ini is too short to hold a text" + Box_End);
}

TEST_F(Text_Table_Test, AFailedReloadKeepsWhatWasNotRebuilt)
{
    Write_Texts("a", {"0001;kept", "9999;end"});
    ASSERT_TRUE(Load("a"));
    Write({"0.4", "", "b", "", "0001;new", "9999;end"});
    EXPECT_FALSE(Load("b"));
    EXPECT_EQ(texts.Get_Text(1), "kept");
    EXPECT_EQ(texts.Language_Names(), QStringList{"a"});
}

// The shipped file has a wording for every number the program asks for, in
// every language, and the sentinel that nothing asks for comes last.
TEST(Shipped_Language_File, HoldsEveryTextInEveryLanguage)
{
    QList<int> numbers;
    for (int n = 1; n <= 13; ++n)
        numbers << n;
    for (int n = 301; n <= 319; ++n)
        numbers << n;
    for (int n = 501; n <= 511; ++n)
        numbers << n;
    for (int n = 601; n <= 610; ++n)
        numbers << n;
    for (int n = 1004; n <= 1012; ++n)
        numbers << n;
    numbers << 101 << 102 << 103 << 104 << 401 << 402 << 403 << 701 << 702 << 703 << 704 << 801
            << 802 << 803 << 804 << 805 << 806 << 901 << 902 << 903 << 904 << 1002 << 1101 << 1102
            << 1208 << 1210 << 1301 << 1302 << 1303 << 1304 << 1305 << 1310;
    Message_Box_Recorder boxes;
    for (const QString& language : {QString::fromUtf8("Français"), QStringLiteral("English")}) {
        Text_Table texts;
        ASSERT_TRUE(texts.Load_Language(ORVANE_SOURCE_DIR "/resources", language));
        EXPECT_EQ(texts.Language_Names(), (QStringList{QString::fromUtf8("Français"), "English"}));
        for (int number : numbers) {
            const QString text = texts.Get_Text(int16_t(number));
            EXPECT_FALSE(text.isEmpty() || text.startsWith(u';')) << number << " " << language.toStdString();
        }
        EXPECT_TRUE(texts.Get_Text(701).endsWith(u'(')) << language.toStdString();
        for (const auto& record : texts.Records())
            EXPECT_FALSE(record.number >= 320 && record.number <= 339) << record.number;
        EXPECT_EQ(texts.Records().back().number, 9999);
    }
    EXPECT_TRUE(boxes.Boxes().empty());
}

} // namespace
} // namespace Orvane
