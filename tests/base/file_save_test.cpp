#include "base/file_save.h"
#include "support/temp_folder.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <csignal>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace Orvane {
namespace {

using Orvane::Test::Temp_Folder;

const QByteArray Old_Content = "old settings\r\nkept byte for byte\r\n";

QStringList Entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
}

// Saving over target fails with reason, leaves no temporary file and the old
// file, where there is one, byte for byte as it was. A lowered file size
// limit, with the signal that would end the process ignored, makes a write
// fail as on a full disk.
void Expect_Refused(const Temp_Folder& folder, const QString& target, const char* reason,
                    rlim_t size_limit = RLIM_INFINITY)
{
    const QStringList before = Entries(folder.Path());
    rlimit previous{};
    getrlimit(RLIMIT_FSIZE, &previous);
    const rlimit lowered{std::min(size_limit, previous.rlim_cur), previous.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &lowered);
    const Save_Result result = Replace_File_Contents(folder.File(target), QByteArray(64 * 1024, 'n'));
    setrlimit(RLIMIT_FSIZE, &previous);
    std::signal(SIGXFSZ, handler);

    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, reason);
    EXPECT_EQ(Entries(folder.Path()), before);
    if (QFileInfo(folder.File(target)).isFile()) {
        EXPECT_EQ(folder.Read(target), Old_Content);
    }
}

// A failure while writing and one at the rename (creating the temporary file fails in a read-only folder, below).
TEST(Replace_File_Contents, FailuresLeaveTheOldFileWholeAndSayWhy)
{
    {
        SCOPED_TRACE("a write past the file size limit");
        Temp_Folder folder;
        folder.Write("orvan.ini", Old_Content);
        Expect_Refused(folder, "orvan.ini", "File too large", 4096);
    }
    {
        SCOPED_TRACE("a directory in the file's place");
        Temp_Folder folder;
        ASSERT_TRUE(QDir(folder.Path()).mkpath("orvan.ini/inside"));
        Expect_Refused(folder, "orvan.ini", "Is a directory");
    }
}

// A file system of its own made read-only: a folder the administrator cannot
// write to either.
TEST(Replace_File_Contents, AReadOnlyFolderLeavesTheOldFile)
{
    Temp_Folder folder;
    const QByteArray where = QFile::encodeName(folder.Path());
    if (::mount("tmpfs", where.constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "mounting a tmpfs is not permitted here";
    struct Unmount_At_End {
        const char* at;
        ~Unmount_At_End() { ::umount2(at, MNT_DETACH); }
    } unmount{where.constData()};
    folder.Write("orvan.ini", Old_Content);
    ASSERT_EQ(::mount("tmpfs", where.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=64k"), 0);
    Expect_Refused(folder, "orvan.ini", "Read-only file system");
}

TEST(Replace_File_Contents, KeepsTheModeAndWritesThroughALink)
{
    Temp_Folder folder;
    const QString real = folder.Write("real.ini", Old_Content);
    ASSERT_EQ(::chmod(QFile::encodeName(real).constData(), 0640), 0);
    ASSERT_TRUE(QFile::link(real, folder.File("link.ini")));

    ASSERT_TRUE(Replace_File_Contents(folder.File("link.ini"), "new\r\n"));
    EXPECT_EQ(folder.Read("real.ini"), "new\r\n");
    EXPECT_TRUE(QFileInfo(folder.File("link.ini")).isSymLink());
    struct stat status{};
    ASSERT_EQ(::stat(QFile::encodeName(real).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    EXPECT_EQ(Entries(folder.Path()), (QStringList{"link.ini", "real.ini"}));
}

// The temporary beside a file whose name takes all the system allows still fits.
TEST(Replace_File_Contents, SavesAFileWithTheLongestNameAllowed)
{
    Temp_Folder folder;
    const QString name = QString(NAME_MAX / 2 - 2, QChar(0xE9)) + QStringLiteral(".orx");  // two bytes each
    ASSERT_EQ(QFile::encodeName(name).size(), NAME_MAX - 1);
    folder.Write(name, Old_Content);
    EXPECT_TRUE(Replace_File_Contents(folder.File(name), "new\r\n"));
    EXPECT_EQ(Entries(folder.Path()), QStringList{name});
}

} // namespace
} // namespace Orvane
