#pragma once

#include <QImage>
#include <QSize>
#include <memory>

namespace Orvane {

// A decoded picture as the engine hands it over. It is drawn by converting
// it straight into the target's pixels: into the window's own buffer when the
// widget paints, so a frame is written once on its way to the screen.
class Video_Picture {
public:
    virtual ~Video_Picture() = default;

    // The picture's own size in pixels.
    virtual QSize Size() const = 0;
    // Writes the picture stretched over the whole of `target`; false when it
    // cannot write the target's pixel format (nothing is written then).
    virtual bool Draw_Into(QImage& target) const = 0;
};

using Picture_Ref = std::shared_ptr<const Video_Picture>;

// The picture at its own size as an RGB32 image (null when it cannot be drawn).
QImage To_Image(const Video_Picture& picture);

} // namespace Orvane
