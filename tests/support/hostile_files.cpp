#include "support/hostile_files.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Orvane::Test {

bool Make_Named_Pipe(const QString& path)
{
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

bool Make_Sparse_File(const QString& path, qint64 size)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (fd < 0)
        return false;
    const bool made = ::ftruncate(fd, off_t(size)) == 0;
    return ::close(fd) == 0 && made;
}

bool Make_Device_Link(const QString& path)
{
    return QFile::link(QStringLiteral("/dev/zero"), path);
}

} // namespace Orvane::Test
