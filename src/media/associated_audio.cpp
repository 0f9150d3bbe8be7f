#include "media/associated_audio.h"

#include "base/file_kind.h"
#include "media/gst_diagnostics.h"
#include "media/gst_walk.h"
#include "media/playback_pipeline.h"

#include <QFile>
#include <QFileInfo>

namespace Orvane {

namespace {

bool Descends_From(GstObject* object, GstElement* ancestor)
{
    return object && ancestor
        && (object == GST_OBJECT(ancestor) || gst_object_has_as_ancestor(object, GST_OBJECT(ancestor)));
}

} // namespace

struct Associated_Audio::Branch {
    Associated_Audio* Owner = nullptr;
    Element_Ref Source;
    Element_Ref Decoder;
    Signal_Connection Pad_Added;
    Signal_Connection No_More_Pads;
    // Guarded by the owner's mutex_.
    Pad_Ref Selector_Pad;
    bool Failed = false;
    QString Error;
    std::vector<Element_Ref> Linked;  // what the decoder's pads were linked into
};

Associated_Audio::Associated_Audio(Playback_Pipeline& owner) : owner_(owner) {}

Associated_Audio::~Associated_Audio()
{
    // The pipeline stopped first, so every thread came back.
    Finish_Removal();
}

Pad_Ref Associated_Audio::Add(const QString& path, Duration_Limit limit, QString& error)
{
    // A named pipe or a device is refused like an unreadable file: filesrc
    // would wait in its open, and the window with it.
    if (!QFileInfo(path).isReadable() || !Is_Regular_File(path)) {
        error = QStringLiteral("Cannot read \"%1\"").arg(path);
        return nullptr;
    }
    auto branch = std::make_unique<Branch>();
    branch->Owner = this;
    branch->Source = Make_Element("filesrc");
    branch->Decoder = Make_Element("decodebin");
    if (!branch->Source || !branch->Decoder) {
        error = QStringLiteral("A GStreamer element the player needs is missing");
        return nullptr;
    }
    GstBin* bin = GST_BIN(owner_.Element());
    g_object_set(branch->Source.get(), "location", QFile::encodeName(path).constData(), nullptr);
    gst_bin_add_many(bin, branch->Source.get(), branch->Decoder.get(), nullptr);
    gst_element_link(branch->Source.get(), branch->Decoder.get());
    Branch* raw = branch.get();
    branch->Pad_Added =
        Signal_Connection(branch->Decoder.get(), "pad-added", G_CALLBACK(&Associated_Audio::On_Pad_Added), raw);
    branch->No_More_Pads = Signal_Connection(branch->Decoder.get(), "no-more-pads",
                                             G_CALLBACK(&Associated_Audio::On_No_More_Pads), raw);
    {
        std::lock_guard lock(mutex_);
        branches_.push_back(std::move(branch));
    }
    gst_element_sync_state_with_parent(raw->Decoder.get());
    gst_element_sync_state_with_parent(raw->Source.get());

    Pad_Ref selector_pad;
    {
        std::unique_lock lock(mutex_);
        branch_settled_.wait_for(lock, limit, [raw] { return raw->Selector_Pad || raw->Failed; });
        selector_pad = raw->Selector_Pad;
        if (!selector_pad)
            error = raw->Error.isEmpty() ? QStringLiteral("No sound could be decoded from \"%1\"").arg(path)
                                         : raw->Error;
    }
    if (selector_pad)
        return selector_pad;

    // Take the failed file out; messages it already posted are ignored.
    gst_element_set_state(raw->Source.get(), GST_STATE_NULL);
    gst_element_set_state(raw->Decoder.get(), GST_STATE_NULL);
    abandoned_.push_back(raw->Source);
    abandoned_.push_back(raw->Decoder);
    gst_bin_remove_many(bin, raw->Source.get(), raw->Decoder.get(), nullptr);
    return nullptr;
}

GstClockTime Associated_Audio::Running_Time_Of(double position) const
{
    std::vector<Pad_Ref> candidates;
    if (const Element_Ref video_sink =
            Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(owner_.Element()), "video_sink")))
        candidates.push_back(Pad_Ref::Adopt(gst_element_get_static_pad(video_sink.get(), "sink")));
    candidates.push_back(Pad_Ref::Adopt(gst_element_get_static_pad(owner_.audio_.Selector.get(), "src")));
    const guint64 target = guint64(std::max(0.0, position) * double(GST_SECOND));
    for (const Pad_Ref& pad : candidates) {
        if (!pad)
            continue;
        const Gst_Ref<GstEvent> event =
            Gst_Ref<GstEvent>::Adopt(gst_pad_get_sticky_event(pad.get(), GST_EVENT_SEGMENT, 0));
        if (!event)
            continue;
        const GstSegment* segment = nullptr;
        gst_event_parse_segment(event.get(), &segment);
        const GstClockTime running = gst_segment_to_running_time(segment, GST_FORMAT_TIME, target);
        if (GST_CLOCK_TIME_IS_VALID(running))
            return running;
    }
    return 0;
}

bool Associated_Audio::Align(GstPad* selector_pad, double position)
{
    Pad_Ref entry;
    for (const Playback_Pipeline::Audio_Input& input : owner_.Audio_Inputs())
        if (input.Selector_Pad.get() == selector_pad && input.Associated)
            entry = input.Entry_Pad;
    if (!entry)
        return false;
    gst_pad_set_offset(entry.get(), gint64(Running_Time_Of(position)));
    GstEvent* seek = gst_event_new_seek(1.0, GST_FORMAT_TIME,
                                        GstSeekFlags(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE),
                                        GST_SEEK_TYPE_SET, gint64(std::max(0.0, position) * double(GST_SECOND)),
                                        GST_SEEK_TYPE_NONE, GST_CLOCK_TIME_NONE);
    return gst_pad_push_event(entry.get(), seek);
}

bool Associated_Audio::Empty() const
{
    std::lock_guard lock(mutex_);
    return branches_.empty();
}

void Associated_Audio::Start_Removal()
{
    std::vector<std::unique_ptr<Branch>> branches;
    {
        std::lock_guard lock(mutex_);
        branches.swap(branches_);
    }
    for (const std::unique_ptr<Branch>& branch : branches) {
        // No stream of the file may join the branch while it goes.
        branch->Pad_Added.Disconnect();
        branch->No_More_Pads.Disconnect();
        Leaving leaving;
        leaving.Elements = {branch->Source, branch->Decoder};
        {
            std::lock_guard lock(mutex_);
            leaving.Selector_Pad = branch->Selector_Pad;
            leaving.Elements.insert(leaving.Elements.end(), branch->Linked.begin(), branch->Linked.end());
        }
        for (const Element_Ref& element : leaving.Elements)
            gst_element_set_locked_state(element.get(), TRUE);
        if (leaving.Selector_Pad) {
            // Flushed, the branch refuses data from the moment its thread
            // comes back; unlinked, no seek of the pipeline starts it again.
            if (const Pad_Ref entry = owner_.Forget_Audio_Input(leaving.Selector_Pad.get()))
                gst_pad_send_event(entry.get(), gst_event_new_flush_start());
            if (const Pad_Ref feeding = Pad_Ref::Adopt(gst_pad_get_peer(leaving.Selector_Pad.get())))
                gst_pad_unlink(feeding.get(), leaving.Selector_Pad.get());
        }
        // What the branch posts from now on is no news.
        abandoned_.insert(abandoned_.end(), leaving.Elements.begin(), leaving.Elements.end());
        leaving_.push_back(std::move(leaving));
    }
}

bool Associated_Audio::Finish_Removal()
{
    bool stopped = true;
    GstBin* bin = GST_BIN(owner_.Element());
    for (const Leaving& leaving : std::exchange(leaving_, {})) {
        for (const Element_Ref& element : leaving.Elements)
            stopped = gst_element_set_state(element.get(), GST_STATE_NULL) != GST_STATE_CHANGE_FAILURE && stopped;
        if (leaving.Selector_Pad)
            gst_element_release_request_pad(owner_.audio_.Selector.get(), leaving.Selector_Pad.get());
        for (const Element_Ref& element : leaving.Elements)
            gst_bin_remove(bin, element.get());
    }
    return stopped;
}

bool Associated_Audio::From_Abandoned_Branch(GstObject* source) const
{
    for (const Element_Ref& element : abandoned_)
        if (Descends_From(source, element.get()))
            return true;
    return false;
}

void Associated_Audio::On_Pad_Added(GstElement*, GstPad* pad, gpointer data)
{
    auto* branch = static_cast<Branch*>(data);
    Associated_Audio* self = branch->Owner;
    bool wanted = false;
    if (Pad_Media_Type(pad).startsWith(QStringLiteral("audio/"))) {
        std::lock_guard lock(self->mutex_);
        wanted = !branch->Selector_Pad && !branch->Failed;
    }
    if (!wanted) {
        Element_Ref sink = self->owner_.Link_Elsewhere(pad);
        std::lock_guard lock(self->mutex_);
        if (sink)
            branch->Linked.push_back(std::move(sink));
        return;
    }
    std::vector<Element_Ref> linked;
    Pad_Ref selector_pad = self->owner_.Link_Audio(pad, true, &linked);
    std::lock_guard lock(self->mutex_);
    branch->Linked.insert(branch->Linked.end(), linked.begin(), linked.end());
    branch->Selector_Pad = selector_pad;
    branch->Failed = !selector_pad;
    self->branch_settled_.notify_all();
}

void Associated_Audio::On_No_More_Pads(GstElement*, gpointer data)
{
    auto* branch = static_cast<Branch*>(data);
    std::lock_guard lock(branch->Owner->mutex_);
    if (!branch->Selector_Pad) {
        branch->Failed = true;
        branch->Owner->branch_settled_.notify_all();
    }
}

void Associated_Audio::On_Sync_Message(GstMessage* message, gpointer data)
{
    if (GST_MESSAGE_TYPE(message) != GST_MESSAGE_ERROR)
        return;
    auto* self = static_cast<Associated_Audio*>(data);
    std::lock_guard lock(self->mutex_);
    for (const auto& branch : self->branches_) {
        if (branch->Selector_Pad || branch->Failed)
            continue;
        if (Descends_From(GST_MESSAGE_SRC(message), branch->Decoder.get())
            || Descends_From(GST_MESSAGE_SRC(message), branch->Source.get())) {
            branch->Failed = true;
            branch->Error = Message_Text(message);
            self->branch_settled_.notify_all();
        }
    }
}

} // namespace Orvane
