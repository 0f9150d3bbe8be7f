// How fast a playlist's files are added through the code the command line
// uses to load a playlist, and how long the event loop waits meanwhile: a
// 10 ms heartbeat timer's worst lateness is the longest the window would not
// answer. A last playlist holds a named pipe among good files: the window
// must not wait on it.
#include "language/text_table.h"
#include "media/gst_media_analyser.h"
#include "media/media_generator.h"
#include "config/settings.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_prompts.h"
#include "playlist/playlist_window_batch.h"
#include "subtitles/subtitle_table.h"
#include "ui/message_box.h"

#include <gst/gst.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

using namespace Orvane;

constexpr int Heartbeat_Ms = 10;

// A handful of short files of the kinds the player knows; the playlists name
// hard links to them, so every entry is a file of its own.
QStringList Generate_Originals(const QTemporaryDir& folder)
{
    QStringList made;
    QString error;
    const QString avi = folder.filePath(QStringLiteral("film.avi"));
    const QString wav = folder.filePath(QStringLiteral("tone.wav"));
    const QString mp3 = folder.filePath(QStringLiteral("song.mp3"));
    if (Media_Generator::Avi(avi, 1.0, {440}, 320, 240, &error))
        made << avi;
    if (Media_Generator::Wav(wav, 1.0, 440, &error))
        made << wav;
    if (Media_Generator::Mp3(mp3, 1.0, 440, &error))
        made << mp3;
    if (made.size() < 3)
        std::fprintf(stderr, "could not generate every file: %s\n", qPrintable(error));
    return made;
}

QString Write_M3u(const QTemporaryDir& folder, const QString& name, const QStringList& media)
{
    QByteArray text = "#EXTM3U\r\n";
    for (qsizetype i = 0; i < media.size(); ++i)
        text += "#EXTINF:1,Entry " + QByteArray::number(i + 1) + "\r\n" + QFile::encodeName(media[i]) + "\r\n";
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return {};
    return path;
}

QString Write_Playlist(const QTemporaryDir& folder, const QStringList& originals, int entries)
{
    QStringList media;
    for (int i = 0; i < entries; ++i) {
        const QString& original = originals.at(i % originals.size());
        const QString link = folder.filePath(QStringLiteral("%1-%2").arg(entries).arg(i))
                             + original.mid(original.lastIndexOf(u'.'));
        if (::link(QFile::encodeName(original).constData(), QFile::encodeName(link).constData()) != 0)
            QFile::copy(original, link);
        media << link;
    }
    return Write_M3u(folder, QStringLiteral("list%1.m3u").arg(entries), media);
}

// The good files with a named pipe named like media second: nothing ever
// writes to it.
QString Write_Pipe_Playlist(const QTemporaryDir& folder, const QStringList& originals)
{
    const QString pipe = folder.filePath(QStringLiteral("pipe.avi"));
    if (::mkfifo(QFile::encodeName(pipe).constData(), 0600) != 0)
        return {};
    QStringList media = originals;
    media.insert(1, pipe);
    return Write_M3u(folder, QStringLiteral("pipe.m3u"), media);
}

struct Figures {
    int added = 0;
    double seconds = 0;
    double worst_gap_ms = 0;
};

Figures Load(const QString& playlist)
{
    auto analyser = std::make_shared<Gst_Media_Analyser>();
    Playback_State state;
    Subtitle_Table subtitles;
    Text_Table texts;
    Message_Box_Prompts prompts(texts);
    Settings settings;
    Playlist_Model model(*analyser, state, subtitles, prompts, [](const QString&) { return false; });
    Playlist_Window_Batch batch(model);
    batch.Use_Analyser(analyser);

    Figures figures;
    QElapsedTimer since_beat;
    QTimer heartbeat;
    heartbeat.setInterval(Heartbeat_Ms);
    heartbeat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&heartbeat, &QTimer::timeout, [&] {
        figures.worst_gap_ms = std::max(figures.worst_gap_ms, double(since_beat.nsecsElapsed()) / 1e6 - Heartbeat_Ms);
        since_beat.restart();
    });

    QElapsedTimer clock;
    QObject::connect(&batch, &Playlist_Window_Batch::Finished, [&] {
        figures.seconds = double(clock.nsecsElapsed()) / 1e9;
        // The time from the last entry back to the event loop counts too.
        QTimer::singleShot(0, [] { QCoreApplication::quit(); });
    });
    QTimer::singleShot(0, [&] {
        since_beat.start();
        heartbeat.start();
        clock.start();
        batch.Load(playlist, settings, texts);
    });
    QCoreApplication::exec();
    heartbeat.stop();
    figures.added = model.Track_Count();
    return figures;
}

void Print(const QString& name, const Figures& figures)
{
    std::printf("files_added_%s: %d\n", qPrintable(name), figures.added);
    std::printf("files_per_second_%s: %.1f\n", qPrintable(name), figures.added / std::max(figures.seconds, 1e-9));
    std::printf("seconds_%s: %.3f\n", qPrintable(name), figures.seconds);
    std::printf("longest_gap_ms_%s: %.1f\n", qPrintable(name), figures.worst_gap_ms);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    gst_init(&argc, &argv);
    QApplication application(argc, argv);
    Message_Box_Recorder silence;
    QTemporaryDir folder;
    const QStringList originals = Generate_Originals(folder);
    if (originals.isEmpty())
        return 1;
    for (const int entries : {200, 1000}) {
        const QString playlist = Write_Playlist(folder, originals, entries);
        if (playlist.isEmpty())
            return 1;
        Print(QString::number(entries), Load(playlist));
    }
    const QString with_pipe = Write_Pipe_Playlist(folder, originals);
    if (with_pipe.isEmpty())
        return 1;
    Print(QStringLiteral("with_named_pipe"), Load(with_pipe));
    return 0;
}
