#pragma once

#include "media/gst_ref.h"

namespace Orvane {

// The sink that plays the sound of the open media: the gst-launch description
// in ORVANE_AUDIO_SINK when set (tests record through an appsink), else
// autoaudiosink; when no audio device can be opened, a fakesink sync=true
// keeps the clock running without sound and a warning is printed, once:
// no_device_reported remembers it for the caller.
Element_Ref Make_Audio_Output(bool& no_device_reported);

} // namespace Orvane
