#include "media/bus_watch.h"

#include <QPointer>
#include <QThread>

namespace Orvane {

Bus_Watch::Bus_Watch(Bus_Ref bus, Handler handler, QObject* parent)
    : QObject(parent), bus_(std::move(bus)), handler_(std::move(handler))
{
    Q_ASSERT(QThread::currentThread() == thread());
    GPollFD poll_descriptor{};
    gst_bus_get_pollfd(bus_.get(), &poll_descriptor);
    notifier_ = std::make_unique<QSocketNotifier>(poll_descriptor.fd, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &Bus_Watch::Dispatch_Pending);
}

Bus_Watch::~Bus_Watch()
{
    notifier_->setEnabled(false);
}

void Bus_Watch::Dispatch_Pending()
{
    Q_ASSERT(QThread::currentThread() == thread());
    // The handler may end the watch's owner; stop as soon as that happens.
    QPointer<Bus_Watch> alive(this);
    const Handler handler = handler_;
    while (alive) {
        Message_Ref message = Message_Ref::Adopt(gst_bus_pop(bus_.get()));
        if (!message)
            break;
        handler(message.get());
    }
}

} // namespace Orvane
