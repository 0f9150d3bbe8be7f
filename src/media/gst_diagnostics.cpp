#include "media/gst_diagnostics.h"

namespace Orvane {

QString Message_Text(GstMessage* message)
{
    GError* raw_error = nullptr;
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR)
        gst_message_parse_error(message, &raw_error, nullptr);
    else if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_WARNING)
        gst_message_parse_warning(message, &raw_error, nullptr);
    const G_Error error(raw_error);
    return error ? QString::fromUtf8(error->message) : QString();
}

} // namespace Orvane
