#include "app/application.h"

#include "app/check_command.h"
#include "app/program.h"
#include "app/quit_signals.h"
#include "player/player_controls.h"
#include "ui/skin_resources.h"
#include "ui/skin_style.h"

#include <gst/gst.h>

#include <QApplication>
#include <cstdio>

namespace Orvane {

int Run_Application(int argc, char** argv)
{
    if (argc > 1 && QByteArrayView(argv[1]) == "--check") {
        QStringList arguments;
        for (int i = 0; i < argc; ++i)
            arguments << QString::fromLocal8Bit(argv[i]);
        return Run_Check(arguments);
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        std::fprintf(stderr, "orvane: no display is available. To run it on a virtual X server:\n"
                             "  xvfb-run -s \"-screen 0 1280x800x24\" %s\n", argv[0]);
        return 1;
    }
    gst_init(&argc, &argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvane"));
    Init_Skin_Resources();
    Apply_Skin_Style();

    QStringList arguments = QApplication::arguments();
    arguments.removeFirst();
    Program program(QApplication::applicationDirPath());
    const Quit_Signals quit_signals([&program] { program.Controls().Quit(); });
    if (!program.Start(arguments))
        return 1;
    return application.exec();
}

} // namespace Orvane
