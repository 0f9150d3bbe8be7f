#include "base/file_save.h"
#include "support/temp_folder.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include <csignal>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Orvane {
namespace {

const QByteArray Old_Content = "old settings\r\nkept byte for byte\r\n";
// The file's own name can be made, a temporary one beside it cannot.
const QString Long_Name(250, u'n');

QStringList Entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
}

// Lowers the file size limit of this process, with the signal that would end
// it ignored, so a write past the limit fails as on a full disk.
class File_Size_Limit {
public:
    explicit File_Size_Limit(rlim_t bytes)
    {
        previous_handler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &previous_);
        rlimit lowered = previous_;
        lowered.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &lowered);
    }
    ~File_Size_Limit()
    {
        setrlimit(RLIMIT_FSIZE, &previous_);
        std::signal(SIGXFSZ, previous_handler_);
    }

private:
    rlimit previous_{};
    void (*previous_handler_)(int) = SIG_DFL;
};

TEST(Replace_File_Contents, FailuresLeaveTheOldFileAndSayWhy)
{
    struct Case {
        const char* what;
        QString target;  // inside the test's folder
        std::function<void(const Orvane::Test::Temp_Folder&)> prepare;
        const char* reason;
        bool size_limited = false;
    };
    const QByteArray big(64 * 1024, 'n');
    const Case cases[] = {
        {"a write past the file size limit", "orvan.ini",
         [](const auto& folder) { folder.Write("orvan.ini", Old_Content); }, "File too large", true},
        {"a directory in the file's place", "orvan.ini",
         [](const auto& folder) { QDir(folder.Path()).mkpath("orvan.ini/inside"); }, "Is a directory"},
        {"a missing folder", "gone/orvan.ini", [](const auto&) {}, "No such file or directory"},
        {"a file in the folder's place", "plain/orvan.ini",
         [](const auto& folder) { folder.Write("plain", Old_Content); }, "Not a directory"},
        {"a temporary name too long", Long_Name,
         [](const auto& folder) { folder.Write(Long_Name, Old_Content); }, "File name too long"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Orvane::Test::Temp_Folder folder;
        c.prepare(folder);
        const QStringList before = Entries(folder.Path());
        Save_Result result;
        {
            std::optional<File_Size_Limit> limit;
            if (c.size_limited)
                limit.emplace(4096);
            result = Replace_File_Contents(folder.File(c.target), big);
        }
        EXPECT_FALSE(result.saved);
        EXPECT_EQ(result.reason, c.reason);
        // Nothing changed: no temporary file left, the old file as it was.
        EXPECT_EQ(Entries(folder.Path()), before);
        if (QFileInfo(folder.File(c.target)).isFile()) {
            EXPECT_EQ(folder.Read(c.target), Old_Content);
        }
    }
}

TEST(Replace_File_Contents, KeepsTheModeAndWritesThroughALink)
{
    Orvane::Test::Temp_Folder folder;
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

// A small file system of its own, mounted when the system allows it.
class Small_File_System {
public:
    explicit Small_File_System(const QString& where)
        : where_(QFile::encodeName(where)),
          mounted_(::mount("tmpfs", where_.constData(), "tmpfs", 0, "size=64k") == 0)
    {
    }
    ~Small_File_System()
    {
        if (mounted_)
            ::umount2(where_.constData(), MNT_DETACH);
    }
    bool Mounted() const { return mounted_; }
    bool Make_Read_Only() const
    {
        return ::mount("tmpfs", where_.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=64k") == 0;
    }
    // Writes a filler until the file system refuses with ENOSPC.
    bool Fill() const
    {
        const int fd = ::open((where_ + "/filler").constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (fd < 0)
            return false;
        const QByteArray block(4096, 'f');
        while (::write(fd, block.constData(), size_t(block.size())) > 0) {
        }
        const bool full = errno == ENOSPC;
        ::close(fd);
        return full;
    }

private:
    QByteArray where_;
    bool mounted_;
};

TEST(Replace_File_Contents, AFullOrReadOnlyFileSystemLeavesTheOldFile)
{
    struct Case {
        const char* what;
        bool (Small_File_System::*make_hostile)() const;
        const char* reason;
    };
    const Case cases[] = {
        {"full", &Small_File_System::Fill, "No space left on device"},
        {"read-only", &Small_File_System::Make_Read_Only, "Read-only file system"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Orvane::Test::Temp_Folder folder;
        const Small_File_System file_system(folder.Path());
        if (!file_system.Mounted())
            GTEST_SKIP() << "mounting a tmpfs is not permitted here";
        folder.Write("orvan.ini", Old_Content);
        ASSERT_TRUE((file_system.*c.make_hostile)());
        const QStringList before = Entries(folder.Path());

        const Save_Result result = Replace_File_Contents(folder.File("orvan.ini"), QByteArray(32 * 1024, 'n'));
        EXPECT_FALSE(result.saved);
        EXPECT_EQ(result.reason, c.reason);
        EXPECT_EQ(folder.Read("orvan.ini"), Old_Content);
        EXPECT_EQ(Entries(folder.Path()), before);
    }
}

} // namespace
} // namespace Orvane
