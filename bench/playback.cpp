// Plays a generated 720p MPEG-4 AVI and a 1080p H.264 MP4 for a fixed time
// with the player's engine (a child process of this program showing the
// picture in a Video_Widget) and with gst-play-1.0 (and mpv when installed)
// on the same display (gst-play-1.0 drawing through ximagesink, from
// gstreamer1.0-x: its automatic choice, the GL sink, fails under Xvfb), sound
// to a fake sink, and prints each one's CPU time
// and peak memory and the ratios to gst-play-1.0. Run it under a display:
//   xvfb-run -a -s "-screen 0 1280x800x24" build/bin/bench_playback
// The figures are whole-process CPU seconds: on a machine shared with other
// work they move from run to run, so the medians of five interleaved runs are
// kept.
#include "media/gst_media_graph.h"
#include "media/media_generator.h"
#include "ui/video_widget.h"

#include <gst/gst.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

using namespace Orvane;

constexpr int Play_Seconds = 10;
constexpr int Runs = 5;

struct Usage {
    double Cpu_Seconds = 0.0;
    double Peak_Mb = 0.0;
    bool Ok = false;
};

// Runs a program to its end; its CPU time (user and system) and peak memory.
Usage Run(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, argv[0], nullptr, nullptr, argv.data(), environ) != 0)
        return {};
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child)
        return {};
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), double(usage.ru_maxrss) / 1024.0,
            WIFEXITED(status) || WIFSIGNALED(status)};
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

// The child: the engine plays the file into a widget of the video's size.
int Play_With_Engine(int argc, char** argv, const QString& path)
{
    gst_init(&argc, &argv);
    QApplication application(argc, argv);
    Video_Widget widget;
    Gst_Media_Graph graph;
    graph.Set_Video_Widget(&widget);
    if (!graph.Open_Graph(path)) {
        std::fprintf(stderr, "cannot open: %s\n", qPrintable(graph.Last_Error()));
        return 1;
    }
    widget.resize(graph.Video_Size());
    widget.show();
    graph.Run();
    // The parent ends the run, as it ends the other players' (see main).
    QTimer::singleShot((Play_Seconds + 5) * 1000, &application, &QApplication::quit);
    return application.exec();
}

} // namespace

// The child that writes a clip: the parent stays small, since a spawned
// program's peak memory starts from its parent's.
int Generate(int argc, char** argv, const QString& description)
{
    gst_init(&argc, &argv);
    QString error;
    if (!Media_Generator::Run_Pipeline(description, &error)) {
        std::fprintf(stderr, "could not generate: %s\n", qPrintable(error));
        return 1;
    }
    return 0;
}

int main(int argc, char** argv)
{
    if (argc == 3 && std::string(argv[1]) == "--play")
        return Play_With_Engine(argc, argv, QString::fromLocal8Bit(argv[2]));
    if (argc == 3 && std::string(argv[1]) == "--generate")
        return Generate(argc, argv, QString::fromLocal8Bit(argv[2]));
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        std::fprintf(stderr, "run under a display (xvfb-run)\n");
        return 1;
    }
    qputenv("ORVANE_AUDIO_SINK", "fakesink sync=true");
    const std::string self = argv[0];
    QTemporaryDir folder;
    struct Clip {
        const char* name;
        QString path;
        const char* encoder;  // with its parser and muxer
        int width;
        int height;
    };
    std::vector<Clip> clips = {{"720", folder.filePath(QStringLiteral("clip720.avi")), "avenc_mpeg4 bitrate=4000000 ! avimux", 1280, 720},
                               {"1080", folder.filePath(QStringLiteral("clip1080.mp4")), "x264enc speed-preset=ultrafast ! h264parse ! mp4mux", 1920, 1080}};
    const int frames = (Play_Seconds + 2) * 25;
    for (const Clip& clip : clips) {
        const QString description =
            QStringLiteral("videotestsrc pattern=ball num-buffers=%1 ! video/x-raw,width=%2,height=%3,framerate=25/1 "
                           "! %4 name=mux ! filesink location=\"%5\" "
                           "audiotestsrc num-buffers=%6 ! audio/x-raw,rate=44100,channels=2 ! lamemp3enc "
                           "! mpegaudioparse ! mux.")
                .arg(frames)
                .arg(clip.width)
                .arg(clip.height)
                .arg(QString::fromLatin1(clip.encoder))
                .arg(clip.path)
                .arg(frames * 44100 / 25 / 1024);
        int status = 0;
        pid_t child = 0;
        const std::string text = description.toStdString();
        char* generate_argv[] = {const_cast<char*>(self.c_str()), const_cast<char*>("--generate"),
                                 const_cast<char*>(text.c_str()), nullptr};
        if (posix_spawn(&child, self.c_str(), nullptr, nullptr, generate_argv, environ) != 0
            || waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
            std::fprintf(stderr, "could not generate the %s clip\n", clip.name);
            return 1;
        }
    }
    const bool have_mpv = !QStandardPaths::findExecutable(QStringLiteral("mpv")).isEmpty();
    const std::string seconds = std::to_string(Play_Seconds);
    for (const Clip& clip : clips) {
        const std::string path = clip.path.toStdString();
        const std::vector<std::pair<std::string, std::vector<std::string>>> players = {
            // Every player is started the same way and interrupted the same
            // wall time after its start, so start-up and opening count alike.
            {"orvane", {"timeout", "-s", "INT", seconds, self, "--play", path}},
            {"gst_play",
             {"timeout", "-s", "INT", seconds, "gst-play-1.0", "-q", "--videosink=ximagesink",
              "--audiosink=fakesink sync=true", path}},
            {"mpv", {"timeout", "-s", "INT", seconds, "mpv", "--really-quiet", "--vo=x11", "--ao=null", path}}};
        // Runs are interleaved, one of each player in turn, so that a load
        // coming and going on the machine falls on all of them alike.
        std::vector<std::pair<std::string, std::vector<Usage>>> runs;
        for (const auto& [name, arguments] : players)
            if (name != "mpv" || have_mpv)
                runs.push_back({name, {}});
        for (int run = 0; run < Runs; ++run)
            for (auto& [name, usages] : runs)
                for (const auto& [player, arguments] : players)
                    if (player == name)
                        usages.push_back(Run(arguments));
        std::vector<std::pair<std::string, Usage>> medians;
        for (const auto& [name, usages] : runs) {
            std::vector<double> cpu;
            std::vector<double> memory;
            for (const Usage& usage : usages)
                if (usage.Ok) {
                    cpu.push_back(usage.Cpu_Seconds);
                    memory.push_back(usage.Peak_Mb);
                }
            medians.push_back({name, {Median(cpu), Median(memory), !cpu.empty()}});
        }
        const Usage reference = medians[1].second;
        for (const auto& [name, usage] : medians) {
            std::printf("cpu_s_%s_%s: %.2f\n", name.c_str(), clip.name, usage.Cpu_Seconds);
            std::printf("rss_mb_%s_%s: %.1f\n", name.c_str(), clip.name, usage.Peak_Mb);
        }
        for (const auto& [name, usage] : medians) {
            if (name == "gst_play" || reference.Cpu_Seconds <= 0.0 || reference.Peak_Mb <= 0.0)
                continue;
            const std::string against = name == "orvane" ? "gst_play" : name + "_vs_gst_play";
            std::printf("cpu_ratio_%s_%s: %.2f\n", against.c_str(), clip.name, usage.Cpu_Seconds / reference.Cpu_Seconds);
            std::printf("rss_ratio_%s_%s: %.2f\n", against.c_str(), clip.name, usage.Peak_Mb / reference.Peak_Mb);
        }
    }
    return 0;
}
