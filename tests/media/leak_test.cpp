// No GStreamer object or mini object survives the graph and the analyser:
// the cycles run again in a child process of this program with GStreamer's
// leaks tracer, which counts every live object and mini object.
#include "media/gst_media_analyser.h"
#include "media/gst_media_graph.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <map>
#include <memory>
#include <optional>

namespace Orvane {
namespace {

constexpr char Child_Files[] = "ORVANE_LEAK_CHILD_FILES";

struct Structure_Free {
    void operator()(GstStructure* structure) const { gst_structure_free(structure); }
};

// Live objects by type name, as the leaks tracer sees them; nothing when
// the tracer is not running.
std::optional<std::map<std::string, int>> Live_Objects()
{
    std::optional<std::map<std::string, int>> counts;
    GList* tracers = gst_tracing_get_active_tracers();
    for (GList* tracer = tracers; tracer; tracer = tracer->next) {
        if (!g_signal_lookup("get-live-objects", G_OBJECT_TYPE(tracer->data)))
            continue;
        counts.emplace();
        GstStructure* raw = nullptr;
        g_signal_emit_by_name(tracer->data, "get-live-objects", &raw);
        const std::unique_ptr<GstStructure, Structure_Free> live(raw);
        const GValue* list = live ? gst_structure_get_value(live.get(), "live-objects-list") : nullptr;
        for (guint i = 0; list && i < gst_value_list_get_size(list); ++i) {
            const GstStructure* info = gst_value_get_structure(gst_value_list_get_value(list, i));
            const GValue* object = gst_structure_get_value(info, "object");
            ++(*counts)[object ? G_VALUE_TYPE_NAME(object) : "?"];
        }
    }
    g_list_free_full(tracers, gst_object_unref);
    return counts;
}

TEST(Leak_Child, OpenPlaySwitchAndCloseLeaveNothingBehind)
{
    QStringList files = qEnvironmentVariable(Child_Files).split(u'\n', Qt::SkipEmptyParts);
    if (files.size() < 2)
        GTEST_SKIP() << "run by Media_Engine_Leaks in a child process";
    const QString associated = files.takeLast();
    ASSERT_TRUE(Live_Objects()) << "the leaks tracer is not running";

    const auto cycle = [&](Gst_Media_Graph& graph) {
        for (const QString& path : files) {
            Gst_Media_Analyser().Analyse_Media(path);
            if (!graph.Open_Graph(path))
                continue;
            graph.Record_Audio_Pins(true, 3);
            graph.Disconnect_Audio_Streams(true, 3);
            graph.Render_Associated_Audio(associated);
            graph.Run();
            QTest::qWait(150);
            // Left in place, then rendered again: both ways a file goes.
            graph.Drop_Associated_Audio();
            graph.Connect_Audio_Stream(2);
            graph.Run();
            QTest::qWait(100);
            graph.Render_Associated_Audio(associated);
            graph.Set_Current_Position(0.5);
            graph.Close_Graph();
        }
    };
    {
        Gst_Media_Graph warm_up;  // GStreamer makes some objects once, on first use
        cycle(warm_up);
    }
    const std::map<std::string, int> before = Live_Objects().value();
    // A closed graph holds nothing of the pipelines it had: compared while it lives.
    Gst_Media_Graph graph;
    cycle(graph);
    cycle(graph);
    QTest::qWait(50);
    const std::map<std::string, int> after = Live_Objects().value();
    for (const auto& [type, count] : after) {
        const auto known = before.find(type);
        EXPECT_LE(count, known == before.end() ? 0 : known->second) << type << " objects were left alive";
    }
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
