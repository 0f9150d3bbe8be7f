#pragma once

#include <QObject>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace Orvane {

// Turns SIGTERM and SIGINT (a session logout, Ctrl+C in a terminal) into a
// call of quit on the event loop's thread, so they end the program the way
// "Fermer" does, settings written. The signal handler only writes a byte to
// a socket pair; the rest happens when the event loop reads it. One instance
// at a time; the previous handlers come back when it goes.
class Quit_Signals : public QObject {
    Q_OBJECT
public:
    explicit Quit_Signals(std::function<void()> quit, QObject* parent = nullptr);
    ~Quit_Signals() override;
    Quit_Signals(const Quit_Signals&) = delete;
    Quit_Signals& operator=(const Quit_Signals&) = delete;

    // False when the socket pair or the handlers could not be set up; the
    // signals then keep their previous effect.
    bool Installed() const { return installed_; }

private:
    void On_Readable();

    std::function<void()> quit_;
    std::unique_ptr<QSocketNotifier> notifier_;
    bool installed_ = false;
};

} // namespace Orvane
