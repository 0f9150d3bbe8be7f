#include "app/application.h"

#include <gst/gst.h>

#include <QApplication>
#include <QLabel>

namespace Orvane {

int Run_Application(int argc, char** argv)
{
    gst_init(&argc, &argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvane"));
    QLabel placeholder(QStringLiteral("Orvane"));
    placeholder.show();
    return application.exec();
}

} // namespace Orvane
