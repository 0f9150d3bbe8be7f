#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <optional>

namespace Orvane {

// Keeps the screensaver away while it is wanted: org.freedesktop.ScreenSaver
// when the desktop offers it, else the XDG desktop portal's Inhibit. Calls
// go out without waiting; an inhibition granted after it stopped being
// wanted is released at once. Whatever is held is released on destruction.
class Screensaver_Inhibitor : public QObject {
    Q_OBJECT
public:
    explicit Screensaver_Inhibitor(const QDBusConnection& bus, QObject* parent = nullptr);
    ~Screensaver_Inhibitor() override;

    void Set_Wanted(bool wanted);
    bool Wanted() const { return wanted_; }

private:
    void Inhibit();
    void Release(QDBus::CallMode mode = QDBus::NoBlock);

    QDBusConnection bus_;
    bool wanted_ = false;
    bool pending_ = false;
    std::optional<uint> cookie_;  // org.freedesktop.ScreenSaver
    QString portal_request_;      // the portal's request object, empty when none
};

} // namespace Orvane
