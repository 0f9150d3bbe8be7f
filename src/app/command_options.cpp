#include "app/command_options.h"

#include <QCommandLineParser>

namespace Orvane {

QString Version_Text() { return QStringLiteral("Orvane 0.5b"); }

Command_Options Parse_Command_Options(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Orvane, a skinned media player.\n"
        "FILE is a playlist (.orx, .m3u), loaded, or a media file, added; a FILE without \"/\"\n"
        "is taken from the program's folder. A further argument beginning with \"/\" (such as\n"
        "/play), or --play, plays it at once."));
    // Long names are also accepted with one dash, as Qt's own options are.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help_option({QStringLiteral("h"), QStringLiteral("help")},
                                         QStringLiteral("Print this help and exit."));
    const QCommandLineOption version_option({QStringLiteral("v"), QStringLiteral("version")},
                                            QStringLiteral("Print the version and exit."));
    const QCommandLineOption play_option(QStringLiteral("play"), QStringLiteral("Play FILE at once."));
    const QCommandLineOption new_window_option(
        QStringLiteral("new-window"),
        QStringLiteral("Start a player of its own; without it, FILE goes to the player already running."));
    const QCommandLineOption check_option(
        QStringLiteral("check"),
        QStringLiteral("orvane --check FILE: read FILE with the program's own reader, print OK and what was read or ERROR: and "
                       "the message, and exit 0 or 1. Opens no window."));
    const QCommandLineOption language_option(
        QStringLiteral("language"), QStringLiteral("With --check of a Lang.ini: the language to read."),
        QStringLiteral("NAME"));
    parser.addOptions({help_option, version_option, play_option, new_window_option, check_option, language_option});
    for (const char* toolkit_option : {"platform", "display", "style"}) {
        QCommandLineOption option(QString::fromLatin1(toolkit_option));
        option.setValueName(QStringLiteral("VALUE"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The file to open."),
                                 QStringLiteral("[FILE]"));
    parser.addPositionalArgument(QStringLiteral("/SWITCH"), QStringLiteral("Play FILE at once."),
                                 QStringLiteral("[/SWITCH]"));

    Command_Options options;
    const auto refuse = [&options](const QString& text) {
        options.What = Command_Options::Action::Refuse;
        options.Text = text;
        return options;
    };
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (parser.isSet(help_option)) {
        options.What = Command_Options::Action::Show_Help;
        options.Text = parser.helpText();
        // The usage line names the program as it is installed, not by the path it was started with.
        const qsizetype name_start = options.Text.indexOf(QLatin1String("Usage: ")) + 7;
        const qsizetype name_end = options.Text.indexOf(u' ', name_start);
        if (name_start >= 7 && name_end > name_start)
            options.Text.replace(name_start, name_end - name_start, QStringLiteral("orvane"));
        return options;
    }
    if (parser.isSet(version_option)) {
        options.What = Command_Options::Action::Show_Version;
        options.Text = Version_Text() + u'\n';
        return options;
    }
    const QStringList positional = parser.positionalArguments();
    if (parser.isSet(check_option)) {
        if (positional.size() != 1 || parser.isSet(play_option) || parser.isSet(new_window_option))
            return refuse(QStringLiteral("--check takes one FILE: orvane --check FILE [--language NAME]"));
        options.What = Command_Options::Action::Check_File;
        options.Check_File = positional.first();
        if (parser.isSet(language_option))
            options.Check_Language = parser.value(language_option);
        return options;
    }
    if (parser.isSet(language_option))
        return refuse(QStringLiteral("--language goes with --check"));
    options.Player_Arguments = positional;
    options.New_Window = parser.isSet(new_window_option);
    if (parser.isSet(play_option) && !positional.isEmpty())
        options.Player_Arguments << QStringLiteral("--play");
    return options;
}

} // namespace Orvane
