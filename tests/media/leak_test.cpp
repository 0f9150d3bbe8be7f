// No GStreamer object or mini object survives the graph and the analyser,
// and the memory does not grow with the tracks played: a hundred cycles run
// in a child process of this program with GStreamer's
// leaks tracer, which counts every live object and mini object.
#include "media/gst_media_analyser.h"
#include "media/gst_media_graph.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <map>
#include <memory>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define ORVANE_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVANE_ADDRESS_SANITIZER 1
#endif
#endif

namespace Orvane {
namespace {

constexpr char Child_Files[] = "ORVANE_LEAK_CHILD_FILES";

struct Structure_Free {
    void operator()(GstStructure* structure) const { gst_structure_free(structure); }
};

// The leaks tracer of this process, null when it is not running (tracers
// live as long as the process).
GstTracer* Leaks_Tracer()
{
    GstTracer* found = nullptr;
    GList* tracers = gst_tracing_get_active_tracers();
    for (GList* tracer = tracers; tracer; tracer = tracer->next)
        if (g_signal_lookup("activity-get-checkpoint", G_OBJECT_TYPE(tracer->data)))
            found = GST_TRACER(tracer->data);
    g_list_free_full(tracers, gst_object_unref);
    return found;
}

// The objects and mini objects made since it began and still alive, from
// the tracer's checkpoints, which name each object made or freed by type
// and address. The tracer's list of live objects is not used: it takes a
// reference on every object, and taking one on an object another thread
// is freeing brought a dead buffer back and freed it twice.
class Made_Objects {
public:
    explicit Made_Objects(GstTracer* tracer) : tracer_(tracer)
    {
        g_signal_emit_by_name(tracer_, "activity-start-tracking");
    }
    ~Made_Objects() { g_signal_emit_by_name(tracer_, "activity-stop-tracking"); }

    // Takes what happened since the last checkpoint. An address both made
    // and freed in between is taken as an object that came and went.
    void Checkpoint()
    {
        GstStructure* raw = nullptr;
        g_signal_emit_by_name(tracer_, "activity-get-checkpoint", &raw);
        const std::unique_ptr<GstStructure, Structure_Free> checkpoint(raw);
        const auto made = Entries(checkpoint.get(), "objects-created-list");
        const auto freed = Entries(checkpoint.get(), "objects-removed-list");
        for (const auto& entry : freed)
            alive_.erase(entry.first);
        for (const auto& [address, type] : made)
            if (!freed.count(address))
                alive_[address] = type;
    }

    std::map<std::string, int> By_Type() const
    {
        std::map<std::string, int> counts;
        for (const auto& entry : alive_)
            ++counts[entry.second];
        return counts;
    }

private:
    // Address to type name.
    static std::map<std::string, std::string> Entries(const GstStructure* checkpoint, const char* field)
    {
        std::map<std::string, std::string> entries;
        const GValue* list = checkpoint ? gst_structure_get_value(checkpoint, field) : nullptr;
        for (guint i = 0; list && i < gst_value_list_get_size(list); ++i) {
            const GstStructure* entry = gst_value_get_structure(gst_value_list_get_value(list, i));
            const char* address = gst_structure_get_string(entry, "address");
            const char* type = gst_structure_get_string(entry, "type-name");
            if (address)
                entries[address] = type ? type : "?";
        }
        return entries;
    }

    GstTracer* tracer_;
    std::map<std::string, std::string> alive_;
};

std::string Listed(const std::map<std::string, int>& counts)
{
    std::string text;
    for (const auto& [type, count] : counts)
        text += type + " x" + std::to_string(count) + "\n";
    return text;
}

// The process's resident memory in bytes.
qint64 Resident_Bytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

// One cycle of the player's life with a track: analysed, opened, its sound
// switched to another stream and to the associated file, played a moment,
// moved and closed. A file that does not open is a cycle too: the failed
// opening must not leave anything either.
void Cycle(Gst_Media_Graph& graph, const QString& path, const QString& associated, int number)
{
    Gst_Media_Analyser().Analyse_Media(path);
    if (!graph.Open_Graph(path))
        return;
    graph.Record_Audio_Pins(true, 3);
    const std::vector<int> streams = graph.Recorded_Streams();
    graph.Disconnect_Audio_Streams(true, 3);
    if (!streams.empty())
        graph.Connect_Audio_Stream(streams[size_t(number) % streams.size()]);
    if (number % 2 == 0)
        graph.Render_Associated_Audio(associated);
    graph.Run();
    // A file that opens but never moves is a cycle too.
    (void)QTest::qWaitFor([&] { return graph.Current_Position() > 0.05; }, 2000);
    if (number % 4 == 0 && !streams.empty()) {
        // The associated file taken out in place, then rendered again.
        graph.Drop_Associated_Audio();
        graph.Connect_Audio_Stream(streams.front());
        graph.Render_Associated_Audio(associated);
    }
    graph.Set_Current_Position(0.5);
    graph.Close_Graph();
}

TEST(Leak_Child, AHundredCyclesOfOpenPlaySwitchAndCloseLeaveNothingBehind)
{
    QStringList files = qEnvironmentVariable(Child_Files).split(u'\n', Qt::SkipEmptyParts);
    if (files.size() < 2)
        GTEST_SKIP() << "run by Media_Engine_Leaks in a child process";
    const QString associated = files.takeLast();
    GstTracer* const tracer = Leaks_Tracer();
    ASSERT_TRUE(tracer) << "the leaks tracer is not running";
    {
        Gst_Media_Graph warm_up;  // GStreamer makes some objects once, on first use
        for (int n = 0; n < 2 * files.size(); ++n)
            Cycle(warm_up, files[n % files.size()], associated, n);
    }
    Made_Objects made(tracer);
    const qint64 resident_before = Resident_Bytes();
    // A closed graph holds nothing of the pipelines it had: compared while it lives.
    Gst_Media_Graph graph;
    for (int n = 0; n < 100; ++n) {
        Cycle(graph, files[n % files.size()], associated, n);
        made.Checkpoint();  // often, so that few addresses are used twice in between
    }
    // Streaming tasks end on their own threads a moment after the close.
    (void)QTest::qWaitFor([&] {
        made.Checkpoint();
        return made.By_Type().empty();
    }, 3000);
    const std::map<std::string, int> left = made.By_Type();
    EXPECT_TRUE(left.empty()) << "left alive:\n" << Listed(left);
#if !defined(ORVANE_ADDRESS_SANITIZER)
    // A leak of plain memory shows as growth; the allocator's own slack is
    // far below this bound. (AddressSanitizer keeps freed memory aside.)
    constexpr qint64 Growth_Bound = 40 * 1024 * 1024;
    EXPECT_LT(Resident_Bytes() - resident_before, Growth_Bound);
#endif
}

TEST(Media_Engine_Leaks, NoGStreamerObjectOutlivesTheGraphOrTheAnalyser)
{
    const Orvane::Test::Generated_Media& media = Orvane::Test::Media();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("GST_TRACERS"), QStringLiteral("leaks"));
    environment.insert(QStringLiteral("GST_DEBUG"), QStringLiteral("GST_TRACER:1"));
    environment.insert(QString::fromLatin1(Child_Files),
                       QStringList{media.Avi_Three_Streams, media.Vcd_Dat, media.Mp3, media.Not_Media,
                                   media.Truncated_Avi, media.Associated_Wav}
                           .join(u'\n'));
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=Leak_Child.*")});
    ASSERT_TRUE(child.waitForFinished(120000));
    const QString output = QString::fromUtf8(child.readAll());
    EXPECT_EQ(child.exitCode(), 0) << output.toStdString();
    EXPECT_TRUE(output.contains(QStringLiteral("[  PASSED  ] 1 test"))) << output.toStdString();
}

} // namespace
} // namespace Orvane
