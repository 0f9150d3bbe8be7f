#include "media/audio_output.h"

#include "media/gst_diagnostics.h"
#include "media/gst_walk.h"

#include <QByteArray>
#include <QtGlobal>
#include <utility>

namespace Orvane {

namespace {

Element_Ref Silent_Output()
{
    Element_Ref sink = Make_Element("fakesink", "silent_audio_output");
    if (sink)
        g_object_set(sink.get(), "sync", TRUE, nullptr);
    return sink;
}

Element_Ref Described_Output(const QByteArray& description)
{
    GError* raw_error = nullptr;
    Element_Ref bin = Element_Ref::Sink(
        gst_parse_bin_from_description(description.constData(), TRUE, &raw_error));
    G_Error error(raw_error);
    if (error || !bin) {
        qCWarning(Media_Log, "ORVANE_AUDIO_SINK \"%s\" cannot be built (%s); using the default audio output",
                 description.constData(), error ? error->message : "no element");
        return nullptr;
    }
    return bin;
}

// autoaudiosink picks its device when it goes to READY; with none usable it
// holds a fake sink of its own.
bool Found_Device(GstElement* automatic)
{
    if (gst_element_set_state(automatic, GST_STATE_READY) == GST_STATE_CHANGE_FAILURE)
        return false;
    for (const Element_Ref& child : Bin_Elements(GST_BIN(automatic), true))
        if (Factory_Name(child.get()).startsWith(QStringLiteral("fake")))
            return false;
    return true;
}

} // namespace

Element_Ref Make_Audio_Output(bool& no_device_reported)
{
    const QByteArray description = qgetenv("ORVANE_AUDIO_SINK");
    if (!description.trimmed().isEmpty())
        if (Element_Ref described = Described_Output(description))
            return described;

    Element_Ref automatic = Make_Element("autoaudiosink", "audio_output");
    if (automatic && Found_Device(automatic.get()))
        return automatic;
    if (automatic)
        gst_element_set_state(automatic.get(), GST_STATE_NULL);
    if (!std::exchange(no_device_reported, true))
        qCWarning(Media_Log, "No audio device could be opened: playing without sound");
    return Silent_Output();
}

} // namespace Orvane
