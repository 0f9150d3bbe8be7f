#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariantMap>
#include <functional>

namespace Orvane {

class Mpris_Player;

// org.mpris.MediaPlayer2 on the object of the media player.
class Mpris_Root_Adaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ Can_Quit)
    Q_PROPERTY(bool CanRaise READ Can_Raise)
    Q_PROPERTY(bool HasTrackList READ Has_Track_List)
    Q_PROPERTY(QString Identity READ Identity)
    Q_PROPERTY(QString DesktopEntry READ Desktop_Entry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ Supported_Uri_Schemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ Supported_Mime_Types)
public:
    Mpris_Root_Adaptor(QObject* object, Mpris_Player& player);

    bool Can_Quit() const { return true; }
    bool Can_Raise() const { return true; }
    bool Has_Track_List() const { return false; }
    QString Identity() const { return QStringLiteral("Orvane"); }
    QString Desktop_Entry() const { return QStringLiteral("org.orvane.Orvane"); }
    QStringList Supported_Uri_Schemes() const { return {QStringLiteral("file")}; }
    QStringList Supported_Mime_Types() const;

public slots:
    void Raise();
    void Quit();

private:
    Mpris_Player& player_;
};

// org.mpris.MediaPlayer2.Player. After every call the owner is told
// (and whether the position was moved), so the changes it made are
// announced at once.
class Mpris_Player_Adaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ Playback_Status)
    Q_PROPERTY(QString LoopStatus READ Loop_Status WRITE Set_Loop_Status)
    Q_PROPERTY(double Rate READ Rate WRITE Set_Rate)
    Q_PROPERTY(double MinimumRate READ Rate)
    Q_PROPERTY(double MaximumRate READ Rate)
    Q_PROPERTY(bool Shuffle READ Shuffle WRITE Set_Shuffle)
    Q_PROPERTY(QVariantMap Metadata READ Metadata)
    Q_PROPERTY(double Volume READ Volume WRITE Set_Volume)
    Q_PROPERTY(qlonglong Position READ Position)
    Q_PROPERTY(bool CanGoNext READ Can_Go_Next)
    Q_PROPERTY(bool CanGoPrevious READ Can_Go_Previous)
    Q_PROPERTY(bool CanPlay READ Can_Play)
    Q_PROPERTY(bool CanPause READ Can_Pause)
    Q_PROPERTY(bool CanSeek READ Can_Seek)
    Q_PROPERTY(bool CanControl READ Can_Control)
public:
    Mpris_Player_Adaptor(QObject* object, Mpris_Player& player, std::function<void(bool seeked)> after_call);

    QString Playback_Status() const;
    QString Loop_Status() const;
    void Set_Loop_Status(const QString& status);
    // One speed only: a rate asked for is ignored.
    double Rate() const { return 1.0; }
    void Set_Rate(double) {}
    bool Shuffle() const { return false; }
    void Set_Shuffle(bool) {}
    QVariantMap Metadata() const;
    double Volume() const;
    void Set_Volume(double volume);
    qlonglong Position() const;
    bool Can_Go_Next() const;
    bool Can_Go_Previous() const;
    bool Can_Play() const;
    bool Can_Pause() const;
    bool Can_Seek() const;
    bool Can_Control() const { return true; }

public slots:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong Offset);
    void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
    void OpenUri(const QString& Uri);

signals:
    void Seeked(qlonglong Position);

private:
    bool Flag(const char* name) const;
    void Done(bool seeked = false);

    Mpris_Player& player_;
    std::function<void(bool)> after_call_;
};

// org.orvane.Orvane: how a second launch hands its command line over.
class Instance_Adaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.orvane.Orvane")
public:
    Instance_Adaptor(QObject* object, std::function<void(const QString& file, bool play)> open);

public slots:
    // file: absolute, empty when the second launch named none.
    void Open(const QString& file, bool play);

private:
    std::function<void(const QString&, bool)> open_;
};

} // namespace Orvane
