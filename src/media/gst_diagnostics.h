#pragma once

#include "media/gst_ref.h"

#include <QLoggingCategory>
#include <QString>

namespace Orvane {

// Everything the media engine reports for a user to send with a bug report.
Q_DECLARE_LOGGING_CATEGORY(Media_Log)

// The text of an error or warning message, as GStreamer words it; empty for
// any other message.
QString Message_Text(GstMessage* message);

// Writes the pipeline's graph, as GStreamer draws it, into the folder named by
// GST_DEBUG_DUMP_DOT_DIR (read when GStreamer starts): a file
// "<time>-orvane-<reason>.dot". Nothing happens when the variable is unset.
void Dump_Pipeline_Graph(GstElement* pipeline, const char* reason);

} // namespace Orvane
