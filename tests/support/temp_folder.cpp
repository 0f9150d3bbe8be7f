#include "support/temp_folder.h"

#include <QFile>

namespace Orvane::Test {

QString Temp_Folder::Write(const QString& name, const QByteArray& bytes) const
{
    const QString path = File(name);
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

QByteArray Temp_Folder::Read(const QString& name) const
{
    QFile file(File(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace Orvane::Test
