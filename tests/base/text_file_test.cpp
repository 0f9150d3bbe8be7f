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

int Open_Error(const QString& path)
{
    try {
        Text_File_Reader reader(path);
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
    // 0x80 is the euro sign in Windows-1252, not the Latin-1 control.
    EXPECT_EQ(Read_All(folder.Write("w.txt", "Fran\xE7" "ais \x80\r\n")),
              QStringList{QString::fromUtf8("Français €")});
    // A byte sequence cut in the middle is not UTF-8.
    EXPECT_EQ(Read_All(folder.Write("c.txt", "ab\xC3")), QStringList{QString::fromUtf8("abÃ")});
}

TEST(Text_File_Reader, SplitsAtCrLfOrLfAndFailsPastTheEnd)
{
    Temp_Folder folder;
    Text_File_Reader reader(folder.Write("l.txt", "one\r\n\r\ntwo\nthree"));
    EXPECT_EQ(reader.Read_Line(), "one");
    EXPECT_EQ(reader.Read_Line(), "");
    EXPECT_EQ(reader.Read_Line(), "two");
    EXPECT_EQ(reader.Read_Line(), "three");
    EXPECT_EQ(reader.Line_Number(), 4);
    EXPECT_TRUE(reader.At_End());
    try {
        reader.Read_Line();
        FAIL() << "read past the end";
    } catch (const Reader_Error& error) {
        EXPECT_EQ(error.Number(), 62);
        EXPECT_EQ(error.Description(), "Input past end of file");
    }
    // A final line end does not start another line.
    EXPECT_EQ(Read_All(folder.Write("e.txt", "a\r\n\r\n")), (QStringList{"a", ""}));
    EXPECT_TRUE(Read_All(folder.Write("empty.txt", "")).isEmpty());
}

TEST(Text_File_Reader, MissingFileIs53AndAFolderIs75)
{
    Temp_Folder folder;
    EXPECT_EQ(Open_Error(folder.File("missing.txt")), 53);
    EXPECT_EQ(Open_Error(folder.Path()), 75);
}

TEST(Write_Text_Lines, WritesUtf8WithCrLfAndReplacesTheWholeFile)
{
    Temp_Folder folder;
    const QString path = folder.Write("out.txt", QByteArray(100, 'x'));
    ASSERT_TRUE(Write_Text_Lines(path, {QString::fromUtf8("é"), ""}));
    EXPECT_EQ(folder.Read("out.txt"), "\xC3\xA9\r\n\r\n");
}

TEST(Write_Text_Lines, AFailedWriteLeavesWhatWasThere)
{
    Temp_Folder folder;
    ASSERT_TRUE(QDir(folder.Path()).mkdir("target"));
    folder.Write("target/inside.txt", "kept");
    EXPECT_FALSE(Write_Text_Lines(folder.File("target"), {"new"}));
    EXPECT_EQ(folder.Read("target/inside.txt"), "kept");
    EXPECT_EQ(QDir(folder.Path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
              QStringList{"target"});
    EXPECT_FALSE(Write_Text_Lines(folder.File("no/such/folder.txt"), {"new"}));
}

} // namespace
} // namespace Orvane
