// The pipeline's graph is written where the user asked for it when opening
// a file fails, so a bug report can show what decoding built.
#include "media/gst_media_graph.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

#include <QDir>

namespace Orvane {
namespace {

namespace Support = Orvane::Test;

QStringList Dumps(const QDir& folder, const QString& reason)
{
    return folder.entryList({QStringLiteral("*orvane-%1.dot").arg(reason)}, QDir::Files);
}

TEST(Pipeline_Graph_Dump, AFileThatFailsToOpenLeavesItsGraphInTheDumpFolder)
{
    const QString folder = qEnvironmentVariable("GST_DEBUG_DUMP_DOT_DIR");
    if (folder.isEmpty())
        GTEST_SKIP() << "run by ctest with GST_DEBUG_DUMP_DOT_DIR set";
    ASSERT_TRUE(QDir().mkpath(folder));
    const QDir dumps(folder);
    const qsizetype before = Dumps(dumps, QStringLiteral("preroll-error")).size();

    Gst_Media_Graph graph;
    ASSERT_FALSE(graph.Open_Graph(Support::Media().Not_Media));
    EXPECT_EQ(Dumps(dumps, QStringLiteral("preroll-error")).size(), before + 1);
}

} // namespace
} // namespace Orvane
