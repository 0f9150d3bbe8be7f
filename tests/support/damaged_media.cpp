#include "support/damaged_media.h"

#include <QFile>
#include <QtEndian>

namespace Orvane::Test {

namespace {

QByteArray Read_All(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool Write_All(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

// "avih", its size, then the fields before the stream count: the time per
// frame, the byte rate, the padding, the flags, the frame counts.
constexpr qsizetype Stream_Count_Offset = 8 + 6 * 4;

} // namespace

bool Write_Truncated(const QString& source, const QString& destination, double fraction)
{
    const QByteArray bytes = Read_All(source);
    return !bytes.isEmpty() && Write_All(destination, bytes.left(qsizetype(double(bytes.size()) * fraction)));
}

bool Write_Byte_Flipped(const QString& source, const QString& destination)
{
    QByteArray bytes = Read_All(source);
    for (qsizetype i = 12; i < bytes.size(); i += 61)
        bytes[i] = char(~bytes[i]);
    return !bytes.isEmpty() && Write_All(destination, bytes);
}

bool Write_Avi_Promising_Streams(const QString& source, const QString& destination, quint32 streams)
{
    QByteArray bytes = Read_All(source);
    const qsizetype header = bytes.indexOf("avih");
    if (!bytes.startsWith("RIFF") || header < 0 || header + Stream_Count_Offset + 4 > bytes.size())
        return false;
    qToLittleEndian(streams, bytes.data() + header + Stream_Count_Offset);
    return Write_All(destination, bytes);
}

} // namespace Orvane::Test
