// Every test program runs with a QApplication on the offscreen platform and
// GStreamer initialised, with sound going nowhere unless a test says otherwise.
#include <gst/gst.h>
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    if (qgetenv("ORVANE_AUDIO_SINK").isEmpty())
        qputenv("ORVANE_AUDIO_SINK", "fakesink sync=true");
    gst_init(&argc, &argv);
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
