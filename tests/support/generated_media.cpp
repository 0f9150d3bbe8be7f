#include "support/generated_media.h"

#include "media/media_generator.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <memory>

namespace Orvane::Test {

namespace {

void Check(bool made, const QString& what, const QString& error)
{
    if (!made)
        ADD_FAILURE() << "could not generate " << what.toStdString() << ": " << error.toStdString();
}

Generated_Media Generate(const QTemporaryDir& dir)
{
    namespace G = Media_Generator;
    Generated_Media media;
    QString error;
    media.Avi_Three_Streams = dir.filePath(QStringLiteral("three streams.avi"));
    Check(G::Avi(media.Avi_Three_Streams, 4.0, {440, 660, 880}, 320, 240, &error), media.Avi_Three_Streams, error);
    media.Avi_One_Stream = dir.filePath(QStringLiteral("one stream.avi"));
    Check(G::Avi(media.Avi_One_Stream, 3.0, {440}, 320, 240, &error), media.Avi_One_Stream, error);
    media.Vcd_Dat = dir.filePath(QStringLiteral("AVSEQ01.DAT"));
    Check(G::Mpeg1_System(media.Vcd_Dat, 3.0, 550, &error), media.Vcd_Dat, error);
    media.Wav = dir.filePath(QStringLiteral("tone.wav"));
    Check(G::Wav(media.Wav, 3.0, 1000, &error), media.Wav, error);
    media.Mp3 = dir.filePath(QStringLiteral("tone.mp3"));
    Check(G::Mp3(media.Mp3, 3.0, 770, &error), media.Mp3, error);
    media.Mp2 = dir.filePath(QStringLiteral("tone.mp2"));
    Check(G::Mp2(media.Mp2, 3.0, 330, &error), media.Mp2, error);
    media.Associated_Wav = dir.filePath(QStringLiteral("english.wav"));
    Check(G::Wav(media.Associated_Wav, 4.0, 1320, &error), media.Associated_Wav, error);

    media.Not_Media = dir.filePath(QStringLiteral("not media.avi"));
    QFile text(media.Not_Media);
    if (text.open(QIODevice::WriteOnly))
        text.write("This is a letter, not a film.\r\n");
    media.Truncated_Avi = dir.filePath(QStringLiteral("truncated.avi"));
    QFile whole(media.Avi_Three_Streams);
    QFile cut(media.Truncated_Avi);
    if (whole.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly))
        cut.write(whole.read(3000));
    return media;
}

} // namespace

const Generated_Media& Media()
{
    static std::unique_ptr<QTemporaryDir> dir;
    static Generated_Media media;
    if (!dir) {
        dir = std::make_unique<QTemporaryDir>();
        media = Generate(*dir);
    }
    return media;
}

} // namespace Orvane::Test
