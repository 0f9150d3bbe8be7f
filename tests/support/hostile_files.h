#pragma once

#include <QString>

namespace Orvane::Test {

// Files a text reader must refuse without waiting on them or reading them.
// Each makes path (replacing nothing) and returns false when it could not.
bool Make_Named_Pipe(const QString& path);
// A file of size bytes that takes no room on the disk (all holes).
bool Make_Sparse_File(const QString& path, qint64 size);
// A link to an endless character device.
bool Make_Device_Link(const QString& path);

} // namespace Orvane::Test
