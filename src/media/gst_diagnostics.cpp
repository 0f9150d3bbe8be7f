#include "media/gst_diagnostics.h"

namespace Orvane {

Q_LOGGING_CATEGORY(Media_Log, "orvane.media", QtInfoMsg)

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

void Dump_Pipeline_Graph(GstElement* pipeline, const char* reason)
{
    if (!pipeline || !GST_IS_BIN(pipeline))
        return;
    const QByteArray name = QByteArrayLiteral("orvane-") + reason;
    GST_DEBUG_BIN_TO_DOT_FILE_WITH_TS(GST_BIN(pipeline), GST_DEBUG_GRAPH_SHOW_ALL, name.constData());
    if (!qEnvironmentVariableIsEmpty("GST_DEBUG_DUMP_DOT_DIR"))
        qCInfo(Media_Log, "Pipeline graph written to %s (%s)", qgetenv("GST_DEBUG_DUMP_DOT_DIR").constData(),
               name.constData());
}

} // namespace Orvane
