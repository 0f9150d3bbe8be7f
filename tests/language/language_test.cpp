#include "language/qt_translations.h"
#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <QMessageBox>
#include <QPushButton>
#include <gtest/gtest.h>

#include <tuple>

namespace Orvane {
namespace {

// Loads a language file made of the header with the given language list
// (none: the lines are the whole file), then the lines.
bool Load(Text_Table& texts, const QString& language, const QStringList& lines, const char* names = nullptr)
{
    const Orvane::Test::Temp_Folder folder;
    const QStringList file = names ? QStringList{"0.5b", "", names, ""} + lines : lines;
    folder.Write("Lang.ini", Orvane::Test::Crlf_Lines(file));
    return texts.Load_Language(folder.Path(), language);
}

TEST(Text_Table, ReadsItsColumnKeepsTheSearchsQuirksAndRefusesWithTheRightBox)
{
    const QStringList text_lines = {"# comment", "", "0005;A;B", "0005;C;D", "0101;;Other", "0102;A;B", "0103;A;B;C",
                                    "0007;x;y"};
    const std::tuple<const char*, const char*, int16_t, const char*> cases[] = {
        {"a", "a;b;c", 5, "A"}, {"b", "a;b;c", 5, "B"},  // the first of two equal numbers
        {"a", "a;b;c", 7, ""},                           // the last line is never found
        {"a", "a;b;c", 101, ";Other"},  // the end search starts one past the start
        {"c", "a;b;c", 102, "0102"},    // a failed search: the next starts at 1
        {"unknown", "a;b;c", 102, "A"},  // the column after the last, wrapped back to the first
        {"unknown", "a;b;c", 103, "0103"},
        {"", "a;b;", 103, "C"}};  // a trailing ";" adds an empty name
    Text_Table texts;
    for (const auto& [language, names, number, text] : cases) {
        ASSERT_TRUE(Load(texts, language, text_lines, names));
        EXPECT_EQ(texts.Get_Text(number), text) << language << " " << number;
    }

    Message_Box_Recorder boxes;
    EXPECT_FALSE(texts.Load_Language(Orvane::Test::Temp_Folder().Path(), "a"));  // no file: no box
    EXPECT_TRUE(boxes.Boxes().empty());
    // A refused reload keeps the old texts.
    EXPECT_FALSE(Load(texts, "a", {"0.5B", "", "a", "", "0001;A", "9999;end"}));
    EXPECT_EQ(texts.Get_Text(103), "C");
    const std::pair<QStringList, QString> refused[] = {
        {{"0.5b", "x", "a", "", "0001;A", "9999;end"}, ""},
        {{"0.5b", "", "a", " ", "0001;A", "9999;end"}, ""},
        {{"0.5B", "", "a", "", "0001;A", "9999;end"}, "The release of Lang.ini is not correct"},
        {{"0.5b", "", "a", ""}, "Lang.ini ends at line 4, before its first text line"},
        {{"0.5b", "", "a", "", "0001;A", "x001;B", "9999;end"}, "Line 6 of Lang.ini does not begin with a text number"},
        {{"0.5b", "", "a", "", "0001"}, "Line 5 of Lang.ini is too short to hold a text"}};
    for (const auto& [lines, detail] : refused) {
        boxes.Clear();
        EXPECT_FALSE(Load(texts, "a", lines));
        EXPECT_LE(boxes.Boxes().size(), 1u);
        EXPECT_EQ(boxes.Last_Text(),
                  detail.isEmpty() ? "" : "Error in Lang.ini\n" + detail + "\nThe application can't continue");
    }
}

// Every number the program asks for has a wording in every language (the
// media filter's ends with the parenthesis its patterns close).
TEST(Shipped_Language_File, HoldsEveryTextInEveryLanguage)
{
    const std::pair<int, int> ranges[] = {{1, 13}, {101, 104}, {301, 319}, {401, 403}, {501, 511}, {601, 610},
        {701, 704}, {801, 806}, {901, 904}, {1002, 1002}, {1004, 1012}, {1101, 1102}, {1208, 1208}, {1210, 1210},
        {1301, 1305}, {1310, 1310}};
    Message_Box_Recorder boxes;  // a box shown would wait for a person
    for (const QString language : {"Français", "English"}) {
        Text_Table texts;
        ASSERT_TRUE(texts.Load_Language(ORVANE_SOURCE_DIR "/resources", language));
        for (const auto& [first, last] : ranges)
            for (int number = first; number <= last; ++number)
                EXPECT_FALSE(texts.Get_Text(int16_t(number)).isEmpty()) << number;
        for (const auto& record : texts.Records())
            EXPECT_FALSE(record.text.startsWith(u';')) << record.number;  // an empty text
        EXPECT_TRUE(texts.Get_Text(701).endsWith(u'('));
    }
}

// Names in English or in the language itself, with or without accents or
// case, give the toolkit's own texts in that language; a later choice
// replaces them, an unknown one leaves English.
TEST(Qt_Translations, MessageBoxButtonsSpeakTheInterfacesLanguage)
{
    Qt_Translations translations;
    const std::tuple<QString, bool, QString> steps[] = {{"Français", true, "Annuler"}, {" English ", true, "Cancel"},
        {"FRANCAIS", true, "Annuler"}, {"Deutsch", true, "Abbrechen"}, {"French", true, "Annuler"},
        {"Klingonesque", false, "Cancel"}};
    for (const auto& [language, spoken, cancel] : steps) {
        EXPECT_EQ(translations.Install(language), spoken) << language.toStdString();
        QMessageBox box(QMessageBox::Question, "Orvane", "?", QMessageBox::Ok | QMessageBox::Cancel);
        EXPECT_EQ(box.button(QMessageBox::Cancel)->text().remove(u'&'), cancel);
    }
}

} // namespace
} // namespace Orvane
