#include "support/generated_media.h"

#include "media/media_generator.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <functional>

namespace Orvane::Test {

namespace {

// Every test runs in a process of its own, so the files are made once per
// build folder and shared: each is written under a name of its own and then
// renamed into place, so two processes making it at once cannot clash.
QString Media_Folder()
{
    const QByteArray chosen = qgetenv("ORVANE_TEST_MEDIA_DIR");
    return chosen.isEmpty() ? QStringLiteral(ORVANE_TEST_MEDIA_DIR) : QString::fromLocal8Bit(chosen);
}

QString Made(const QDir& folder, const QString& name, const std::function<bool(const QString&, QString*)>& make)
{
    const QString path = folder.filePath(name);
    if (QFileInfo(path).size() > 0)
        return path;
    const QString part = path + QStringLiteral(".part-%1").arg(QCoreApplication::applicationPid());
    QString error;
    if (!make(part, &error)) {
        QFile::remove(part);
        ADD_FAILURE() << "could not generate " << path.toStdString() << ": " << error.toStdString();
        return path;
    }
    if (!QFile::rename(part, path))
        QFile::remove(part);  // another process put it there first
    return path;
}

Generated_Media Generate(const QDir& dir)
{
    namespace G = Media_Generator;
    Generated_Media media;
    media.Avi_Three_Streams = Made(dir, QStringLiteral("three streams.avi"), [](const QString& p, QString* e) {
        return G::Avi(p, 4.0, {440, 660, 880}, 320, 240, e);
    });
    media.Avi_One_Stream = Made(dir, QStringLiteral("one stream.avi"), [](const QString& p, QString* e) {
        return G::Avi(p, 3.0, {440}, 320, 240, e);
    });
    media.Vcd_Dat = Made(dir, QStringLiteral("AVSEQ01.DAT"), [](const QString& p, QString* e) {
        return G::Mpeg1_System(p, 3.0, 550, e);
    });
    media.Wav = Made(dir, QStringLiteral("tone.wav"), [](const QString& p, QString* e) { return G::Wav(p, 3.0, 1000, e); });
    media.Mp3 = Made(dir, QStringLiteral("tone.mp3"), [](const QString& p, QString* e) { return G::Mp3(p, 3.0, 770, e); });
    media.Mp2 = Made(dir, QStringLiteral("tone.mp2"), [](const QString& p, QString* e) { return G::Mp2(p, 3.0, 330, e); });
    media.Associated_Wav = Made(dir, QStringLiteral("english.wav"), [](const QString& p, QString* e) {
        return G::Wav(p, 4.0, 1320, e);
    });
    media.Not_Media = Made(dir, QStringLiteral("not media.avi"), [](const QString& p, QString*) {
        QFile text(p);
        return text.open(QIODevice::WriteOnly) && text.write("This is a letter, not a film.\r\n") > 0;
    });
    const QString whole_avi = media.Avi_Three_Streams;
    media.Truncated_Avi = Made(dir, QStringLiteral("truncated.avi"), [whole_avi](const QString& p, QString*) {
        QFile whole(whole_avi);
        QFile cut(p);
        return whole.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly) && cut.write(whole.read(3000)) > 0;
    });
    media.Half_Avi = Made(dir, QStringLiteral("half.avi"), [whole_avi](const QString& p, QString*) {
        QFile whole(whole_avi);
        QFile cut(p);
        return whole.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly)
            && cut.write(whole.read(whole.size() / 2)) > 0;
    });
    return media;
}

} // namespace

const Generated_Media& Media()
{
    static const Generated_Media media = [] {
        QDir folder(Media_Folder());
        folder.mkpath(QStringLiteral("."));
        return Generate(folder);
    }();
    return media;
}

} // namespace Orvane::Test
