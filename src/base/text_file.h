#pragma once

#include "base/file_save.h"

#include <QString>
#include <QStringList>

namespace Orvane {

// Decodes a text file's bytes: UTF-8 when they are valid UTF-8 (a leading
// byte-order mark dropped), otherwise Windows-1252, the code page of files
// made on the original platform.
QString Decode_Text(const QByteArray& bytes);

// Splits text at CR LF, LF or a lone CR. A line end at the very end of the
// text does not start another line.
QStringList Split_Lines(const QString& text);

// The largest text file the readers take: far beyond any real subtitle,
// playlist, configuration or language file, small enough to hold at once.
constexpr qint64 Text_File_Size_Limit = 16 * 1024 * 1024;

// Reads a text file line by line, as the line-input statement does.
class Text_File_Reader {
public:
    // Reads the whole file. Throws Reader_Error 53 when it does not exist,
    // 75 when it cannot be read, is not a regular file (a named pipe, a
    // device, a socket, a folder: refused before anything waits on it) or is
    // larger than Text_File_Size_Limit (refused before it is read).
    explicit Text_File_Reader(const QString& path);

    // Reads the next line without its line end; Reader_Error 62 past the end.
    QString Read_Line();
    bool At_End() const { return next_ >= lines_.size(); }
    // Number of the line Read_Line returned last, from 1.
    int Line_Number() const { return int(next_); }

private:
    QStringList lines_;
    qsizetype next_ = 0;
};

// Writes lines in UTF-8, each ended by CR LF, through Replace_File_Contents:
// the old file stays whole whatever happens before the end.
Save_Result Write_Text_Lines(const QString& path, const QStringList& lines);

} // namespace Orvane
