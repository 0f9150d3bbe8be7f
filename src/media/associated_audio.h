#pragma once

#include "media/gst_ref.h"
#include "media/signal_connection.h"

#include <QString>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace Orvane {

class Playback_Pipeline;

// The associated audio files rendered into one playback pipeline. Each is
// filesrc ! decodebin whose first audio stream joins the pipeline's selector
// as one more input, so it shares the pipeline's clock. A file leaves again
// in place, without opening the pipeline anew.
//
// Locking: mutex_ guards the branches' settled state; it is never held while
// calling into the owner (whose locks are taken by Link_Audio), so the two
// sets of locks have no order between them.
class Associated_Audio {
public:
    using Duration_Limit = std::chrono::milliseconds;

    explicit Associated_Audio(Playback_Pipeline& owner);
    ~Associated_Audio();
    Associated_Audio(const Associated_Audio&) = delete;
    Associated_Audio& operator=(const Associated_Audio&) = delete;

    // Renders the file; its selector pad, or nothing with error set (the
    // file's elements are taken out again).
    Pad_Ref Add(const QString& path, Duration_Limit limit, QString& error);
    // Moves a file's branch, on its own, to position: the part of the file at
    // position plays at the running time the picture shows it, without
    // flushing (and prerolling again) the rest of the pipeline.
    bool Align(GstPad* selector_pad, double position);
    // Takes every associated file out of the pipeline, the rest of it
    // untouched, in two steps. Start_Removal flushes each branch and unlinks
    // it from the selector (which should already have another active pad);
    // the branch no longer follows the pipeline's state. Finish_Removal stops
    // and removes it, which can only be done once the streaming thread came
    // back: while the pipeline is paused, the thread of the input heard last
    // waits inside the audio sink until the pipeline plays.
    void Start_Removal();
    bool Removal_Pending() const { return !leaving_.empty(); }
    bool Finish_Removal();  // false if a branch would not stop
    bool Empty() const;
    // A message from the elements of an associated file that failed or left.
    bool From_Abandoned_Branch(GstObject* source) const;

    // Bus sync handler: runs on whichever thread posts the message.
    static void On_Sync_Message(GstMessage* message, gpointer self);

private:
    struct Branch;

    // Streaming threads (the branch's decodebin).
    static void On_Pad_Added(GstElement* decoder, GstPad* pad, gpointer branch);
    static void On_No_More_Pads(GstElement* decoder, gpointer branch);

    // The running time at which the picture (or the sound heard) shows position.
    GstClockTime Running_Time_Of(double position) const;
    // The elements a branch added to the pipeline; the feeding pad first.
    struct Leaving {
        std::vector<Element_Ref> Elements;
        Pad_Ref Selector_Pad;
    };

    Playback_Pipeline& owner_;
    mutable std::mutex mutex_;
    std::condition_variable branch_settled_;
    std::vector<std::unique_ptr<Branch>> branches_;  // guarded by mutex_
    std::vector<Leaving> leaving_;                   // GUI thread only
    std::vector<Element_Ref> abandoned_;             // GUI thread only
};

} // namespace Orvane
