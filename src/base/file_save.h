#pragma once

#include <QByteArray>
#include <QString>

namespace Orvane {

// What became of a save: saved, or not with the system's reason.
struct Save_Result {
    bool saved = true;
    QString reason;  // the system's error text when not saved

    explicit operator bool() const { return saved; }
};

// The one way the program writes a file. The bytes go to a new temporary file
// in the target's folder, every write checked, flushed to the disk and closed;
// only then is it renamed over the target, which keeps its permissions. On any
// failure the temporary file is removed and the old file is left byte for
// byte as it was, so a full disk can never leave an empty or half file.
Save_Result Replace_File_Contents(const QString& path, const QByteArray& bytes);

} // namespace Orvane
