#include "base/text_file.h"

#include "base/reader_error.h"

#include <QFile>
#include <QStringDecoder>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Orvane {

namespace {

// Windows-1252 differs from Latin-1 only in 0x80..0x9F.
constexpr char16_t Cp1252_High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

QString Decode_Cp1252(const QByteArray& bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text.append(code >= 0x80 && code < 0xA0 ? QChar(Cp1252_High[code - 0x80]) : QChar(code));
    }
    return text;
}

// A file is closed on every way out.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor()
    {
        if (fd_ >= 0)
            ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Get() const { return fd_; }

private:
    int fd_;
};

bool Is_Readable_Size(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_size <= Text_File_Size_Limit;
}

// The kind and the size are looked at before the file is opened, so that
// nothing waits on a named pipe or a device; the open itself does not wait
// either, in case the path changed in between, and the descriptor is checked
// again.
QByteArray Read_Text_Bytes(const QString& path)
{
    const QByteArray native = QFile::encodeName(path);
    struct stat status{};
    if (::stat(native.constData(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            throw Reader_Error::File_Not_Found();
        throw Reader_Error::Path_File_Access();
    }
    if (!Is_Readable_Size(status))
        throw Reader_Error::Path_File_Access();
    const Descriptor file(::open(native.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (file.Get() < 0 || ::fstat(file.Get(), &status) != 0 || !Is_Readable_Size(status))
        throw Reader_Error::Path_File_Access();

    // One byte more than announced shows a file that grew past the bound.
    QByteArray bytes(qsizetype(status.st_size) + 1, Qt::Uninitialized);
    qsizetype filled = 0;
    for (;;) {
        if (filled == bytes.size()) {
            if (bytes.size() > Text_File_Size_Limit)
                throw Reader_Error::Path_File_Access();
            bytes.resize(std::min<qsizetype>(bytes.size() * 2, Text_File_Size_Limit + 1));
        }
        const ssize_t got = ::read(file.Get(), bytes.data() + filled, size_t(bytes.size() - filled));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw Reader_Error::Path_File_Access();
        if (got == 0)
            break;
        filled += got;
    }
    bytes.truncate(filled);
    return bytes;
}

} // namespace

QString Decode_Text(const QByteArray& bytes)
{
    QByteArray body = bytes;
    if (body.startsWith("\xEF\xBB\xBF"))
        body.remove(0, 3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(body);
    if (!utf8.hasError())
        return text;
    return Decode_Cp1252(body);
}

QStringList Split_Lines(const QString& text)
{
    // Line ends are found with QString's own search, far faster than a look
    // at every character on the megabyte files the readers accept.
    QStringList lines;
    const qsizetype n = text.size();
    qsizetype start = 0;
    qsizetype next_lf = text.indexOf(u'\n');
    qsizetype next_cr = text.indexOf(u'\r');
    while (start < n) {
        if (next_lf >= 0 && next_lf < start)
            next_lf = text.indexOf(u'\n', start);
        if (next_cr >= 0 && next_cr < start)
            next_cr = text.indexOf(u'\r', start);
        const qsizetype end = next_lf < 0 ? next_cr : next_cr < 0 ? next_lf : std::min(next_lf, next_cr);
        if (end < 0)
            break;
        lines.append(text.mid(start, end - start));
        start = end + 1;
        if (text[end] == u'\r' && start < n && text[start] == u'\n')
            ++start;
    }
    if (start < n)
        lines.append(text.mid(start));
    return lines;
}

Text_File_Reader::Text_File_Reader(const QString& path)
{
    lines_ = Split_Lines(Decode_Text(Read_Text_Bytes(path)));
}

QString Text_File_Reader::Read_Line()
{
    if (At_End())
        throw Reader_Error::Input_Past_End();
    return lines_[next_++];
}

Save_Result Write_Text_Lines(const QString& path, const QStringList& lines)
{
    QByteArray bytes;
    for (const QString& line : lines) {
        bytes += line.toUtf8();
        bytes += "\r\n";
    }
    return Replace_File_Contents(path, bytes);
}

} // namespace Orvane
