#pragma once

#include "media/gst_ref.h"

#include <QString>
#include <vector>

namespace Orvane {

// A new element of factory, owned by the caller (null when the factory is missing).
Element_Ref Make_Element(const char* factory, const char* name = nullptr);

// The elements of a bin in the bin's own order; with recurse, each child bin
// is followed by its own children.
std::vector<Element_Ref> Bin_Elements(GstBin* bin, bool recurse);
std::vector<Pad_Ref> Source_Pads(GstElement* element);
std::vector<Pad_Ref> Sink_Pads(GstElement* element);

QString Factory_Name(GstElement* element);  // empty when the element has no factory
QString Factory_Klass(GstElement* element);
QString Object_Name(gpointer object);       // a GstObject's name
QString Stream_Id(GstPad* pad);             // of the pad's sticky stream-start, empty when none
// The media type of the caps the pad carries or could carry ("audio/mpeg").
QString Pad_Media_Type(GstPad* pad);
// The elements that feed element, nearest first, following its first sink
// pad upstream through each element's internal links (so a multiqueue is
// crossed on the right queue). Stops at a bin's edge.
std::vector<Element_Ref> Upstream_Chain(GstElement* element);

} // namespace Orvane
