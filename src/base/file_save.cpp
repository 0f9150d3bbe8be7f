#include "base/file_save.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Orvane {

namespace {

Save_Result Failure(int error)
{
    return {false, QString::fromLocal8Bit(std::strerror(error))};
}

// A symbolic link is written through, so the link stays a link.
QByteArray Target_Path(const QString& path)
{
    struct stat link_status{};
    const QByteArray native = QFile::encodeName(path);
    if (::lstat(native.constData(), &link_status) == 0 && S_ISLNK(link_status.st_mode)) {
        const QString resolved = QFileInfo(path).canonicalFilePath();
        if (!resolved.isEmpty())
            return QFile::encodeName(resolved);
    }
    return native;
}

// Creates a hidden file beside target that nobody else has opened (O_EXCL);
// errno tells why when it returns -1.
int Create_Temporary(const QByteArray& target, QByteArray& temporary)
{
    const qsizetype slash = target.lastIndexOf('/');
    QByteArray name = target.mid(slash + 1);
    // The temporary's name must fit where the target's did: '.', '.', up to
    // seven random digits and ".tmp" take 13 bytes, so a long name is cut,
    // at the start of a character.
    constexpr qsizetype Longest_Kept = NAME_MAX - 13;
    if (name.size() > Longest_Kept) {
        qsizetype cut = Longest_Kept;
        while (cut > 0 && (static_cast<unsigned char>(name[cut]) & 0xC0) == 0x80)
            --cut;
        name.truncate(cut);
    }
    const QByteArray prefix = target.left(slash + 1) + '.' + name + '.';
    for (int attempt = 0; attempt < 100; ++attempt) {
        temporary = prefix + QByteArray::number(QRandomGenerator::global()->generate(), 36) + ".tmp";
        const int fd = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    errno = EEXIST;
    return -1;
}

// A short write is followed by another until all is written or the system
// refuses (a full disk, a file size limit); errno tells why on false.
bool Write_All(int fd, const char* data, size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (written == 0) {
            errno = EIO;
            return false;
        }
        data += written;
        size -= size_t(written);
    }
    return true;
}

// The old file's owner and mode go to the new one where the system allows.
void Keep_Permissions(int fd, const QByteArray& target)
{
    struct stat old_status{};
    if (::stat(target.constData(), &old_status) != 0 || !S_ISREG(old_status.st_mode))
        return;
    // Owner first: a change of owner clears the set-id bits the mode restores.
    [[maybe_unused]] const int owned = ::fchown(fd, old_status.st_uid, old_status.st_gid);
    [[maybe_unused]] const int moded = ::fchmod(fd, old_status.st_mode & 07777);
}

// Makes the rename itself durable; a folder that cannot be synced changes
// nothing about the file's content, so it is not a failure.
void Sync_Folder(const QByteArray& target)
{
    const qsizetype slash = target.lastIndexOf('/');
    const QByteArray folder = slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : target.left(slash);
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

} // namespace

Save_Result Replace_File_Contents(const QString& path, const QByteArray& bytes)
{
    const QByteArray target = Target_Path(path);
    QByteArray temporary;
    const int fd = Create_Temporary(target, temporary);
    if (fd < 0)
        return Failure(errno);
    Keep_Permissions(fd, target);

    const auto abandon = [&temporary](int error) {
        ::unlink(temporary.constData());
        return Failure(error);
    };
    if (!Write_All(fd, bytes.constData(), size_t(bytes.size())) || ::fsync(fd) != 0) {
        const int error = errno;
        ::close(fd);
        return abandon(error);
    }
    // A file system may report a failed write-back only here.
    if (::close(fd) != 0)
        return abandon(errno);
    if (::rename(temporary.constData(), target.constData()) != 0)
        return abandon(errno);
    Sync_Folder(target);
    return {};
}

} // namespace Orvane
