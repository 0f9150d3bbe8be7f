#pragma once

#include <QString>

namespace Orvane::Test {

// Damaged copies of a good media file, as a user finds them after a broken
// download or on a scratched disc. Each writes destination and returns false
// when it could not.

// The first fraction (0..1) of source's bytes.
bool Write_Truncated(const QString& source, const QString& destination, double fraction);
// source with one byte in every 61 inverted past its first 12 bytes (the
// file still announces its format, so the demuxer takes it on).
bool Write_Byte_Flipped(const QString& source, const QString& destination);
// An AVI whose main header promises streams streams (source must be an AVI).
bool Write_Avi_Promising_Streams(const QString& source, const QString& destination, quint32 streams);

} // namespace Orvane::Test
