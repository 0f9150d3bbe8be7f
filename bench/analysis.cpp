// How fast files are analysed on their own pipelines, next to
// gst-discoverer-1.0 run on each file.
#include "media/gst_media_analyser.h"
#include "media/media_generator.h"

#include <gst/gst.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdio>
#include <map>

namespace {

using namespace Orvane;

constexpr int File_Count = 100;
constexpr double Seconds = 2.0;

constexpr int Distinct_System_Streams = 5;

// A mix of the kinds the player knows, in standard-definition sizes. The
// MPEG-1 system streams (VCD size) take seconds each to encode: a few are
// made and the others are copies of them under names of their own.
QStringList Generate(const QTemporaryDir& folder)
{
    QStringList system_streams;
    QStringList files;
    for (int i = 0; i < File_Count; ++i) {
        const int frequency = 300 + 10 * i;
        QString path;
        QString error;
        bool made = false;
        switch (i % 4) {
        case 0:
            path = folder.filePath(QStringLiteral("film%1.avi").arg(i));
            made = i % 8 == 0 ? Media_Generator::Avi(path, Seconds, {frequency}, 720, 576, &error)
                              : Media_Generator::Avi(path, Seconds, {frequency, frequency + 5}, 640, 480, &error);
            break;
        case 1:
            path = folder.filePath(QStringLiteral("AVSEQ%1.DAT").arg(i));
            if (system_streams.size() < Distinct_System_Streams) {
                made = Media_Generator::Mpeg1_System(path, Seconds, frequency, &error);
                if (made)
                    system_streams << path;
            } else {
                made = !system_streams.isEmpty()
                    && QFile::copy(system_streams.at(i % system_streams.size()), path);
            }
            break;
        case 2:
            path = folder.filePath(QStringLiteral("tone%1.wav").arg(i));
            made = Media_Generator::Wav(path, Seconds, frequency, &error);
            break;
        default:
            path = folder.filePath(QStringLiteral("song%1.mp3").arg(i));
            made = Media_Generator::Mp3(path, Seconds, frequency, &error);
            break;
        }
        if (!made) {
            std::fprintf(stderr, "could not generate %s: %s\n", qPrintable(path), qPrintable(error));
            continue;
        }
        files << path;
    }
    return files;
}

} // namespace

int main(int argc, char** argv)
{
    gst_init(&argc, &argv);
    QCoreApplication application(argc, argv);
    QTemporaryDir folder;
    std::printf("generating %d files of %.0f s in %s ...\n", File_Count, Seconds, qPrintable(folder.path()));
    std::fflush(stdout);
    const QStringList files = Generate(folder);
    if (files.isEmpty())
        return 1;

    Gst_Media_Analyser analyser;
    int analysed = 0;
    std::map<QString, std::pair<int, double>> by_kind;  // kind -> files, milliseconds
    QElapsedTimer clock;
    clock.start();
    for (const QString& file : files) {
        QElapsedTimer one;
        one.start();
        const std::optional<Media_Analysis> analysis = analyser.Analyse_Media(file);
        const double ms = double(one.nsecsElapsed()) / 1e6;
        analysed += analysis.has_value();
        auto& [count, total] = by_kind[QFileInfo(file).suffix().toLower()];
        ++count;
        total += ms;
    }
    const double ms_per_file = double(clock.nsecsElapsed()) / 1e6 / files.size();
    std::printf("analysed %d of %d files in one process\n", analysed, int(files.size()));
    for (const auto& [kind, figures] : by_kind)
        std::printf("  %-4s %3d files, %.1f ms per file\n", qPrintable(kind), figures.first,
                    figures.second / figures.first);

    const QString discoverer = QStandardPaths::findExecutable(QStringLiteral("gst-discoverer-1.0"));
    double discoverer_ms_per_file = 0.0;
    if (discoverer.isEmpty()) {
        std::printf("gst-discoverer-1.0 not found\n");
    } else {
        clock.restart();
        for (const QString& file : files) {
            QProcess process;
            process.setProcessChannelMode(QProcess::MergedChannels);
            process.start(discoverer, {file});
            process.waitForFinished(30000);
        }
        discoverer_ms_per_file = double(clock.nsecsElapsed()) / 1e6 / files.size();
    }
    std::printf("ms_per_file: %.1f\n", ms_per_file);
    std::printf("discoverer_ms_per_file: %.1f\n", discoverer_ms_per_file);
    std::printf("ratio: %.1f\n", ms_per_file > 0 ? discoverer_ms_per_file / ms_per_file : 0.0);
    return 0;
}
