// Writes the demo playlist that the player opens when it is started without
// a file: a clip with two audio languages, an associated audio file, a
// subtitle file and the playlist that ties them together.
#include "base/text_file.h"
#include "media/media_generator.h"

#include <gst/gst.h>

#include <QCoreApplication>
#include <QDir>
#include <cstdio>

namespace {

bool Report(bool made, const QString& what, const QString& error)
{
    if (!made)
        std::fprintf(stderr, "orvane_make_demo: %s: %s\n", qPrintable(what), qPrintable(error));
    return made;
}

bool Report(const Orvane::Save_Result& saved, const QString& what)
{
    return Report(saved.saved, what, saved.reason);
}

QStringList Demo_Subtitles()
{
    return {
        QStringLiteral("[TITLE]"), QStringLiteral("Démonstration"),
        QStringLiteral("[AUTHOR]"), QStringLiteral("Orvane"),
        QStringLiteral("[SOURCE]"), QStringLiteral("Mire de test générée"),
        QStringLiteral("[PRG]"), QStringLiteral("orvane_make_demo"),
        QStringLiteral("[FILEPATH]"), QString(),
        QStringLiteral("[DELAY]"), QStringLiteral("0"),
        QStringLiteral("[CD TRACK]"), QStringLiteral("0"),
        QStringLiteral("[BEGIN]"),
        QStringLiteral("******** START SCRIPT ********"),
        QStringLiteral("[00:00:01]"), QStringLiteral("Bienvenue dans Orvane|Welcome to Orvane"),
        QStringLiteral("[00:00:04]"), QStringLiteral("Ce clip a deux pistes audio|This clip has two audio streams"),
        QStringLiteral("[00:00:07]"), QStringLiteral("Choisissez-en une dans le menu audio|Pick one in the audio menu"),
        QStringLiteral("[00:00:10]"), QStringLiteral("ou écoutez le commentaire associé|or listen to the associated commentary"),
        QStringLiteral("[00:00:13]"), QString(),
        QStringLiteral("[END]"),
    };
}

} // namespace

int main(int argc, char** argv)
{
    gst_init(&argc, &argv);
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: orvane_make_demo FOLDER\n");
        return 2;
    }
    const QDir folder(arguments[1]);
    if (!folder.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "orvane_make_demo: cannot create %s\n", qPrintable(folder.path()));
        return 1;
    }

    namespace G = Orvane::Media_Generator;
    const QString clip = folder.absoluteFilePath(QStringLiteral("deux langues.avi"));
    const QString commentary = folder.absoluteFilePath(QStringLiteral("commentaire.wav"));
    const QString subtitles = folder.absoluteFilePath(QStringLiteral("deux langues.sub"));
    const QString music = folder.absoluteFilePath(QStringLiteral("la 440.mp3"));
    QString error;
    bool made = Report(G::Avi(clip, 15.0, {440, 660}, 640, 360, &error), clip, error)
        && Report(G::Wav(commentary, 15.0, 330, &error), commentary, error)
        && Report(G::Mp3(music, 8.0, 440, &error), music, error)
        && Report(Orvane::Write_Text_Lines(subtitles, Demo_Subtitles()), subtitles);
    if (!made)
        return 1;

    const QStringList playlist = {
        QStringLiteral("#EXTORX"),
        QStringLiteral("#TRACK"),
        QStringLiteral("Titre=Deux langues"),
        QStringLiteral("Media=") + clip,
        QStringLiteral("Audio=") + commentary,
        QStringLiteral("SousT=") + subtitles,
        QStringLiteral("#TRACK"),
        QStringLiteral("Titre=La 440"),
        QStringLiteral("Media=") + music,
        QStringLiteral("Audio="),
        QStringLiteral("SousT="),
    };
    const QString playlist_path = folder.absoluteFilePath(QStringLiteral("demo.orx"));
    return Report(Orvane::Write_Text_Lines(playlist_path, playlist), playlist_path)
        ? 0
        : 1;
}
