#include "base/reader_error.h"
#include "base/text_file.h"
#include "support/temp_folder.h"

#include <QDir>
#include <gtest/gtest.h>

namespace Orvane {
namespace {

using Temp_Folder = Orvane::Test::Temp_Folder;

QStringList Read_All(const QString& path)
{
    Text_File_Reader reader(path);
    QStringList lines;
    while (!reader.At_End())
        lines << reader.Read_Line();
    return lines;
}

// The error raised when opening path and reading one line past its end.
int Read_Error(const QString& path)
{
    try {
        Text_File_Reader reader(path);
        while (!reader.At_End())
            reader.Read_Line();
        reader.Read_Line();
    } catch (const Reader_Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(Text_File_Reader, DecodesUtf8OrWindows1252AndDropsTheMark)
{
    Temp_Folder folder;
    EXPECT_EQ(Read_All(folder.Write("u.txt", "\xEF\xBB\xBF" "Fran\xC3\xA7" "ais\r\n")),
              QStringList{QString::fromUtf8("Français")});
    // 0x80 is the euro sign in Windows-1252; a sequence cut short is not UTF-8.
    EXPECT_EQ(Read_All(folder.Write("w.txt", "Fran\xE7" "ais \x80\r\n")),
              QStringList{QString::fromUtf8("Français €")});
    EXPECT_EQ(Read_All(folder.Write("c.txt", "ab\xC3")), QStringList{QString::fromUtf8("abÃ")});
}

TEST(Text_File_Reader, SplitsAtCrLfOrLfAndNumbersItsErrors)
{
    Temp_Folder folder;
    EXPECT_EQ(Read_All(folder.Write("l.txt", "one\r\n\r\ntwo\nthree")),
              (QStringList{"one", "", "two", "three"}));
    EXPECT_EQ(Read_All(folder.Write("e.txt", "a\r\n\r\n")), (QStringList{"a", ""}));
    EXPECT_EQ(Read_Error(folder.File("e.txt")), 62);
    EXPECT_EQ(Read_Error(folder.Write("empty.txt", "")), 62);
    EXPECT_EQ(Read_Error(folder.File("missing.txt")), 53);
    EXPECT_EQ(Read_Error(folder.Path()), 75);
}

TEST(Write_Text_Lines, ReplacesTheWholeFileOrLeavesWhatWasThere)
{
    Temp_Folder folder;
    const QString path = folder.Write("out.txt", QByteArray(100, 'x'));
    ASSERT_TRUE(Write_Text_Lines(path, {QString::fromUtf8("é"), ""}));
    EXPECT_EQ(folder.Read("out.txt"), "\xC3\xA9\r\n\r\n");

    ASSERT_TRUE(QDir(folder.Path()).mkpath("target/inside"));
    EXPECT_FALSE(Write_Text_Lines(folder.File("target"), {"new"}));
    EXPECT_TRUE(QDir(folder.File("target/inside")).exists());
    EXPECT_EQ(QDir(folder.Path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
              (QStringList{"out.txt", "target"}));  // no temporary file left behind
    EXPECT_FALSE(Write_Text_Lines(folder.File("no/such/folder.txt"), {"new"}));

    // The temporary file's name is too long to be made: the old file stays.
    const QString long_name = QString(250, u'n');
    folder.Write(long_name, "old\r\n");
    EXPECT_FALSE(Write_Text_Lines(folder.File(long_name), {"new"}));
    EXPECT_EQ(folder.Read(long_name), "old\r\n");
}

} // namespace
} // namespace Orvane
