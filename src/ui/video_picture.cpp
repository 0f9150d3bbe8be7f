#include "ui/video_picture.h"

namespace Orvane {

QImage To_Image(const Video_Picture& picture)
{
    QImage image(picture.Size(), QImage::Format_RGB32);
    if (image.isNull() || !picture.Draw_Into(image))
        return {};
    return image;
}

} // namespace Orvane
