#pragma once

#include <QString>

namespace Orvane {

// The subtitle table and its timing queries as the playback session uses
// them. The application wires it to the subtitle reader and timing routines.
class Subtitle_Source {
public:
    virtual ~Subtitle_Source() = default;
    // Reads a subtitle file into the table; false when the reader refused it
    // (the reader has told the user already).
    virtual bool Load(const QString& path) = 0;
    // The first entry due at or after time_text ("hh:mm:ss"), 0 when only
    // the closing record is left.
    virtual int Find(const QString& time_text) const = 0;
    // Start-time text of entry n, the delay included; empty past the closing record.
    virtual QString Start_Time(int n) const = 0;
    virtual QString Line1(int n) const = 0;
    virtual QString Line2(int n) const = 0;
};

} // namespace Orvane
