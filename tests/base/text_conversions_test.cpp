#include "base/numbers.h"
#include "base/reader_error.h"
#include "base/text_file.h"
#include "base/time_text.h"
#include "support/hostile_files.h"
#include "support/temp_folder.h"

#include <QDir>
#include <QVariant>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <tuple>

namespace Orvane {
namespace {

// Each input converted gives the expected text: the result, or "error N" for
// the Reader_Error it raises.
template <typename Input, typename Convert>
void Expect_Outcomes(Convert convert, std::initializer_list<std::pair<Input, const char*>> cases)
{
    for (const auto& [input, expected] : cases) {
        QString outcome;
        try {
            outcome = QVariant::fromValue(convert(input)).toString();
        } catch (const Reader_Error& error) {
            outcome = QStringLiteral("error %1").arg(error.Number());
        }
        EXPECT_EQ(outcome.toStdString(), expected) << "input " << input;
    }
}

TEST(Numbers_And_Times, ReadRoundedAndPrintedByTheReadersRules)
{
    Expect_Outcomes<const char*>(Leading_Number, {{"  12abc", "12"}, {"\t-3.75 px", "-3.75"}, {".5", "0.5"},
        {"1e3x", "1000"}, {"2e", "2"}, {"1.2.3", "1.2"}, {"abc", "0"}, {"-", "0"}, {"1e400", "error 6"}});
    Expect_Outcomes<const char*>(Strict_Double, {{" 1 ", "1"}, {"-2.5E1", "-25"}, {"1e999", "error 6"},
        {"", "error 13"}, {"1x", "error 13"}, {"1 2", "error 13"}, {".", "error 13"}, {"--1", "error 13"}});
    Expect_Outcomes<const char*>(Text_To_Boolean, {{"0.0", "false"}, {"2", "true"}, {"-1", "true"},
        {"true", "true"}, {"FALSE", "false"}, {"", "error 13"}, {"yes", "error 13"}, {"1a", "error 13"}});
    Expect_Outcomes<double>(Round_To_Int16, {{12.5, "12"}, {13.5, "14"}, {-2.5, "-2"}, {32767.4, "32767"},
                                             {-32768.0, "-32768"}, {32767.5, "error 6"}, {-32768.6, "error 6"}});
    Expect_Outcomes<double>(Printed_Number, {{12, " 12 "}, {-5, "-5 "}, {16777215, " 16777215 "},
                                             {-0.25, "-.25 "}, {1e20, " 1E+20 "}});
    // Two digits each, rounded half to even, within the day.
    Expect_Outcomes<int>(Time_Text, {{3725, "01:02:05"}, {Seconds_Per_Day + 1, "00:00:01"}, {-1, "23:59:59"}});
    Expect_Outcomes<double>(Position_Text, {{2.5, "00:00:02"}, {3.5, "00:00:04"}, {32768.0, "error 6"}});
    Expect_Outcomes<const char*>([](const char* text) { return Parse_Time_Text(text).value_or(-1); },
        {{"00:01:02", "62"}, {"1:2:3", "3723"}, {"23:59:59", "86399"}, {"24:00:00", "-1"}, {"00:60:00", "-1"},
         {"00:00:60", "-1"}, {"00:00", "-1"}, {"aa:00:00", "-1"}, {"000:00:00", "-1"}, {"", "-1"}});
}

// Every line of the file, then the error of reading one more line (or of
// opening it) as the boxes show it.
QStringList Read_All(const QString& path)
{
    QStringList lines;
    try {
        Text_File_Reader reader(path);
        while (!reader.At_End())
            lines << reader.Read_Line();
        reader.Read_Line();
    } catch (const Reader_Error& error) {
        lines << QStringLiteral("%1, %2").arg(error.Number()).arg(error.Description());
    }
    return lines;
}

TEST(Text_File_Reader, DecodesSplitsAndNumbersItsErrors)
{
    Orvane::Test::Temp_Folder folder;
    // 0x80 is the euro sign in Windows-1252; a sequence cut short is not UTF-8.
    const std::pair<QByteArray, QStringList> files[] = {
        {"\xEF\xBB\xBF" "Fran\xC3\xA7" "ais\r\n", {"Français", "62, Input past end of file"}},
        {"Fran\xE7" "ais \x80\r\n", {"Français €", "62, Input past end of file"}},
        {"ab\xC3", {"abÃ", "62, Input past end of file"}},
        {"one\r\n\r\ntwo\nthree\r\n\r\n", {"one", "", "two", "three", "", "62, Input past end of file"}},
        {"a\rb\r\rc\n\rd", {"a", "b", "", "c", "", "d", "62, Input past end of file"}},
        {"", {"62, Input past end of file"}}};
    for (const auto& [bytes, lines] : files)
        EXPECT_EQ(Read_All(folder.Write("file.txt", bytes)), lines) << bytes.toHex().toStdString();
}

TEST(Text_File_Reader, RefusesWhatIsNotAnOrdinaryFileWithinTheBoundBeforeWaitingOrReading)
{
    using namespace Orvane::Test;
    const QString access = "75, Path/File access error";
    const std::tuple<const char*, std::function<bool(const QString&)>, QString> cases[] = {
        {"nothing", [](const QString&) { return true; }, "53, File not found"},
        {"a link to nothing", [](const QString& path) { return QFile::link("/no/such/file", path); },
         "53, File not found"},
        {"a folder", [](const QString& path) { return QDir().mkdir(path); }, access},
        {"a named pipe nobody writes to", Make_Named_Pipe, access},
        {"an endless device", Make_Device_Link, access},
        {"one byte past the bound", [](const QString& path) { return Make_Sparse_File(path, Text_File_Size_Limit + 1); },
         access},
        {"exactly the bound", [](const QString& path) { return Make_Sparse_File(path, Text_File_Size_Limit); },
         "62, Input past end of file"},  // read to its end
    };
    for (const auto& [what, make, last] : cases) {
        SCOPED_TRACE(what);
        Temp_Folder folder;
        ASSERT_TRUE(make(folder.File("file.txt")));
        EXPECT_EQ(Read_All(folder.File("file.txt")).last(), last);
    }
}

} // namespace
} // namespace Orvane
