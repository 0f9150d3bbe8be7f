#pragma once

#include <QString>
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

} // namespace Orvane::Test
