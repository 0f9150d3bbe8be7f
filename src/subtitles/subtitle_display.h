#pragma once

#include <QString>

namespace Orvane {

// The subtitle window as the playback session drives it.
class Subtitle_Display {
public:
    virtual ~Subtitle_Display() = default;
    // Shows the two lines of entry n; two empty lines and n = 1 clear it.
    virtual void Show_Subtitle(const QString& line1, const QString& line2, int n) = 0;
    void Clear() { Show_Subtitle(QString(), QString(), 1); }
};

} // namespace Orvane
