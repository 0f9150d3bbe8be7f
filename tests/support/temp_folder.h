#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace Orvane::Test {

// A folder of its own for each test, removed afterwards.
class Temp_Folder {
public:
    Temp_Folder() { dir_.setAutoRemove(true); }
    QString Path() const { return dir_.path(); }
    QString File(const QString& name) const { return dir_.filePath(name); }
    // Writes bytes as they stand (line ends and encoding chosen by the test).
    QString Write(const QString& name, const QByteArray& bytes) const;
    QByteArray Read(const QString& name) const;

private:
    QTemporaryDir dir_;
};

// Lines as the player's own files end them (CR LF, the last one too), in UTF-8.
inline QByteArray Crlf_Lines(const QStringList& lines) { return (lines.join("\r\n") + "\r\n").toUtf8(); }

} // namespace Orvane::Test
