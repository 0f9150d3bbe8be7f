#include "app/application.h"

#include "app/check_command.h"
#include "app/command_options.h"
#include "app/desktop_bus.h"
#include "app/file_drop.h"
#include "app/program.h"
#include "app/program_files.h"
#include "app/quit_signals.h"
#include "player/command_line.h"
#include "player/player_controls.h"
#include "ui/skin_resources.h"
#include "ui/skin_style.h"

#include <gst/gst.h>

#include <QApplication>
#include <QDir>
#include <cstdio>

namespace Orvane {

bool Prefer_X_Display(const QByteArray& qt_qpa_platform, const QByteArray& wayland_display,
                      const QByteArray& x_display)
{
    return qt_qpa_platform.isEmpty() && !wayland_display.isEmpty() && !x_display.isEmpty();
}

int Run_Application(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        // GStreamer's own options are taken by gst_init below.
        if (i == 0 || !QByteArrayView(argv[i]).startsWith("--gst-"))
            arguments << QString::fromLocal8Bit(argv[i]);
    }
    // Decided before any application object: help, version and the check
    // must work over a connection without a display.
    const Command_Options options = Parse_Command_Options(arguments);
    switch (options.What) {
    case Command_Options::Action::Show_Help:
    case Command_Options::Action::Show_Version:
        std::fputs(options.Text.toLocal8Bit().constData(), stdout);
        return Exit_Done;
    case Command_Options::Action::Refuse:
        std::fprintf(stderr, "orvane: %s (see orvane --help)\n", options.Text.toLocal8Bit().constData());
        return Exit_Not_Understood;
    case Command_Options::Action::Check_File:
        return Run_Check(options.Check_File, options.Check_Language, arguments.value(0));
    case Command_Options::Action::Start_Player:
        break;
    }

    if (Prefer_X_Display(qgetenv("QT_QPA_PLATFORM"), qgetenv("WAYLAND_DISPLAY"), qgetenv("DISPLAY")))
        qputenv("QT_QPA_PLATFORM", "xcb");
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        std::fprintf(stderr, "orvane: no display is available. To run it on a virtual X server:\n"
                             "  xvfb-run -s \"-screen 0 1280x800x24\" %s\n", argv[0]);
        return 1;
    }
    gst_init(&argc, &argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvane"));
    QApplication::setDesktopFileName(QStringLiteral("org.orvane.Orvane"));
    Init_Skin_Resources();
    Apply_Skin_Style();

    const Program_Files files = Locate_Program_Files();
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!options.New_Window && !Claim_Player_Name(bus)) {
        const auto request = Parse_Command_Line(options.Player_Arguments, files.Program_Folder, QDir::currentPath());
        if (Hand_Over(bus, request ? request->File : QString(), request && request->Play_Now))
            return Exit_Done;
    }
    Program program(files);
    const Desktop_Bus desktop_bus(program, bus);
    const File_Drop file_drop(program);
    const Quit_Signals quit_signals([&program] { program.Controls().Quit(); });
    if (!program.Start(options.Player_Arguments))
        return 1;
    return application.exec();
}

} // namespace Orvane
