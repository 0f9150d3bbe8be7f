#include "app/mpris_adaptors.h"

#include "app/mpris_player.h"

#include <QTimer>

namespace Orvane {

Mpris_Root_Adaptor::Mpris_Root_Adaptor(QObject* object, Mpris_Player& player)
    : QDBusAbstractAdaptor(object), player_(player)
{
}

QStringList Mpris_Root_Adaptor::Supported_Mime_Types() const
{
    // The types the desktop entry declares.
    return QStringLiteral(
        "video/x-msvideo;video/avi;video/msvideo;video/mpeg;video/x-mpeg;video/mp4;video/mpeg4;application/x-extension-mpeg4;application/x-extension-dat;audio/wav;"
        "audio/x-wav;audio/vnd.wave;audio/mpeg;audio/x-mpeg;audio/mp3;audio/x-mp3;audio/mp2;audio/x-mp2;audio/x-mpegurl;audio/mpegurl;application/x-orvane-playlist")
        .split(u';');
}

void Mpris_Root_Adaptor::Raise() { player_.Raise(); }

void Mpris_Root_Adaptor::Quit()
{
    // After the reply has gone: quitting ends the event loop that sends it.
    QTimer::singleShot(0, this, [this] { player_.Quit(); });
}

Mpris_Player_Adaptor::Mpris_Player_Adaptor(QObject* object, Mpris_Player& player,
                                           std::function<void(bool seeked)> after_call)
    : QDBusAbstractAdaptor(object), player_(player), after_call_(std::move(after_call))
{
}

bool Mpris_Player_Adaptor::Flag(const char* name) const
{
    return player_.Player_Properties().value(QLatin1String(name)).toBool();
}

void Mpris_Player_Adaptor::Done(bool seeked)
{
    if (after_call_)
        after_call_(seeked);
}

QString Mpris_Player_Adaptor::Playback_Status() const { return player_.Playback_Status(); }
QString Mpris_Player_Adaptor::Loop_Status() const { return player_.Loop_Status(); }
QVariantMap Mpris_Player_Adaptor::Metadata() const { return player_.Metadata(); }
double Mpris_Player_Adaptor::Volume() const { return player_.Volume(); }
qlonglong Mpris_Player_Adaptor::Position() const { return player_.Position_Us(); }
bool Mpris_Player_Adaptor::Can_Go_Next() const { return Flag("CanGoNext"); }
bool Mpris_Player_Adaptor::Can_Go_Previous() const { return Flag("CanGoPrevious"); }
bool Mpris_Player_Adaptor::Can_Play() const { return Flag("CanPlay"); }
bool Mpris_Player_Adaptor::Can_Pause() const { return Flag("CanPause"); }
bool Mpris_Player_Adaptor::Can_Seek() const { return Flag("CanSeek"); }

void Mpris_Player_Adaptor::Set_Loop_Status(const QString& status)
{
    player_.Set_Loop_Status(status);
    Done();
}

void Mpris_Player_Adaptor::Set_Volume(double volume)
{
    player_.Set_Volume(volume);
    Done();
}

void Mpris_Player_Adaptor::Next() { player_.Next(); Done(); }
void Mpris_Player_Adaptor::Previous() { player_.Previous(); Done(); }
void Mpris_Player_Adaptor::Pause() { player_.Pause(); Done(); }
void Mpris_Player_Adaptor::PlayPause() { player_.Play_Pause(); Done(); }
void Mpris_Player_Adaptor::Stop() { player_.Stop(); Done(); }
void Mpris_Player_Adaptor::Play() { player_.Play(); Done(); }

void Mpris_Player_Adaptor::Seek(qlonglong Offset)
{
    Done(player_.Seek(Offset));
}

void Mpris_Player_Adaptor::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position)
{
    Done(player_.Set_Position(TrackId.path(), Position));
}

void Mpris_Player_Adaptor::OpenUri(const QString& Uri)
{
    player_.Open_Uri(Uri);
    Done();
}

Instance_Adaptor::Instance_Adaptor(QObject* object, std::function<void(const QString&, bool)> open)
    : QDBusAbstractAdaptor(object), open_(std::move(open))
{
}

void Instance_Adaptor::Open(const QString& file, bool play)
{
    // Opened after the reply, so the second launch can exit at once.
    QTimer::singleShot(0, this, [this, file, play] {
        if (open_)
            open_(file, play);
    });
}

} // namespace Orvane
