#include "app/quit_signals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Orvane {

namespace {

constexpr std::array<int, 2> Quit_Signal_Numbers{SIGTERM, SIGINT};

// Written by the handler, read by the notifier. Plain ints: the handler may
// only touch what is safe to use from a signal.
volatile sig_atomic_t write_end = -1;
int read_end = -1;
struct sigaction previous[Quit_Signal_Numbers.size()];

void On_Signal(int number)
{
    const int saved_errno = errno;
    const char byte = char(number);
    // A full pipe already holds a byte that will quit: nothing is lost.
    if (write_end >= 0 && ::write(write_end, &byte, 1) < 0) {
    }
    errno = saved_errno;
}

void Close_Ends()
{
    if (write_end >= 0)
        ::close(write_end);
    if (read_end >= 0)
        ::close(read_end);
    write_end = -1;
    read_end = -1;
}

} // namespace

Quit_Signals::Quit_Signals(std::function<void()> quit, QObject* parent)
    : QObject(parent), quit_(std::move(quit))
{
    if (write_end >= 0) {
        std::fprintf(stderr, "orvane: the quit signals are already handled\n");
        return;
    }
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0) {
        std::perror("orvane: socketpair");
        return;
    }
    write_end = ends[0];
    read_end = ends[1];
    notifier_ = std::make_unique<QSocketNotifier>(read_end, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &Quit_Signals::On_Readable);

    struct sigaction action {};
    action.sa_handler = &On_Signal;
    sigemptyset(&action.sa_mask);
    // Interrupted system calls go on: the loop will see the byte soon enough.
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Quit_Signal_Numbers.size(); ++i)
        ::sigaction(Quit_Signal_Numbers[i], &action, &previous[i]);
    installed_ = true;
}

Quit_Signals::~Quit_Signals()
{
    if (!installed_)
        return;
    for (std::size_t i = 0; i < Quit_Signal_Numbers.size(); ++i)
        ::sigaction(Quit_Signal_Numbers[i], &previous[i], nullptr);
    notifier_.reset();
    Close_Ends();
}

void Quit_Signals::On_Readable()
{
    // Several signals may have come at once: one quit answers them all.
    char bytes[16];
    bool signalled = false;
    while (::read(read_end, bytes, sizeof bytes) > 0)
        signalled = true;
    if (signalled && quit_)
        quit_();
}

} // namespace Orvane
