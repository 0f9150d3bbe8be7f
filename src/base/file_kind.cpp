#include "base/file_kind.h"

#include <QFile>

#include <sys/stat.h>

namespace Orvane {

bool Is_Regular_File(const QString& path)
{
    struct stat status{};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace Orvane
