#pragma once

#include "media/gst_ref.h"

#include <QString>

namespace Orvane {

// The text of an error or warning message, as GStreamer words it; empty for
// any other message.
QString Message_Text(GstMessage* message);

} // namespace Orvane
