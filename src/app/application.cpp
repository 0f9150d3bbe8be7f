#include "app/application.h"

#include "app/check_command.h"

#include <gst/gst.h>

#include <QApplication>
#include <QLabel>

namespace Orvane {

int Run_Application(int argc, char** argv)
{
    if (argc > 1 && QByteArrayView(argv[1]) == "--check") {
        QStringList arguments;
        for (int i = 0; i < argc; ++i)
            arguments << QString::fromLocal8Bit(argv[i]);
        return Run_Check(arguments);
    }
    gst_init(&argc, &argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvane"));
    QLabel placeholder(QStringLiteral("Orvane"));
    placeholder.show();
    return application.exec();
}

} // namespace Orvane
