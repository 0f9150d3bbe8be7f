#include "app/check_command.h"

#include "app/check_media_files.h"
#include "app/program_files.h"

#include "config/config_file.h"
#include "config/settings.h"
#include "language/text_table.h"
#include "ui/message_box.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdlib>
#include <memory>
#include <optional>

namespace Orvane {

namespace {

struct Check_Request {
    QString file;
    std::optional<QString> language;
};

enum Check_Status { Accepted = 0, Refused = 1, Not_Understood = 2 };

QString Boolean_Text(bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); }

QString Color_Text(const Subtitle_Color_Value& color)
{
    if (const auto* number = std::get_if<int32_t>(&color))
        return QString::number(*number);
    return std::get<QString>(color);
}

QString Text_Number(int number)
{
    const QString digits = QStringLiteral("%1").arg(std::abs(number), 4 - (number < 0), 10, QLatin1Char('0'));
    return number < 0 ? u'-' + digits : digits;
}

// Prints the refusal as the box showed it; a refusal without a box prints
// "ERROR:" alone.
int Report_Refusal(const Message_Box_Recorder& recorder, QTextStream& out)
{
    QString text = recorder.Last_Text();
    out << "ERROR:";
    if (!recorder.Boxes().empty())
        out << ' ' << text.replace(u'\n', QStringLiteral(" / "));
    out << Qt::endl;
    return Refused;
}

int Check_Config_File(const Check_Request& request, QTextStream& out)
{
    Message_Box_Recorder recorder;
    Settings settings;
    Text_Table texts;
    if (!Read_Config_File(request.file, Locate_Program_Files().Language_Folder, settings, texts))
        return Report_Refusal(recorder, out);
    out << "OK\n"
          << "Language_Name: " << settings.Language_Name << '\n'
          << "Subtitle_Font_Name: " << settings.Subtitle_Font_Name << '\n'
          << "Subtitle_Font_Size: " << settings.Subtitle_Font_Size << '\n'
          << "Subtitle_Font_Bold: " << Boolean_Text(settings.Subtitle_Font_Bold) << '\n'
          << "Subtitle_Font_Italic: " << Boolean_Text(settings.Subtitle_Font_Italic) << '\n'
          << "Subtitle_Color: " << Color_Text(settings.Subtitle_Color) << '\n'
          << "Subtitle_Transparent: " << Boolean_Text(settings.Subtitle_Transparent) << '\n'
          << "Playlist_Repeat: " << Boolean_Text(settings.Playlist_Repeat) << '\n'
          << "CD1_Drive: " << settings.CD1_Drive << '\n'
          << "CD2_Drive: " << settings.CD2_Drive << '\n'
          << "Volume_Setting: " << settings.Volume_Setting << '\n'
          << "Save_Settings: " << Boolean_Text(settings.Save_Settings) << Qt::endl;
    return Accepted;
}

// The language the program would load: the one named in the configuration
// file it would read, the user's or, before their first start, the shipped
// one (filled as soon as the reader has passed its language line, whatever
// happens after).
QString Configured_Language()
{
    Message_Box_Recorder silence;
    Settings settings;
    Text_Table texts;
    const Program_Files files = Locate_Program_Files();
    Read_Config_File(files.Config_To_Read(), files.Language_Folder, settings, texts);
    return settings.Language_Name;
}

int Check_Language_File(const Check_Request& request, QTextStream& out)
{
    Message_Box_Recorder recorder;
    Text_Table texts;
    const QString language = request.language ? *request.language : Configured_Language();
    if (!texts.Load_Language(QFileInfo(request.file).absolutePath(), language))
        return Report_Refusal(recorder, out);
    out << "OK\n"
          << "languages: " << texts.Language_Names().join(u';') << '\n'
          << "column: " << texts.Language_Column() << '\n';
    for (const auto& record : texts.Records())
        out << Text_Number(record.number) << ' ' << texts.Get_Text(record.number) << '\n';
    out.flush();
    return Accepted;
}

int Dispatch(const Check_Request& request, QTextStream& out)
{
    const QString name = QFileInfo(request.file).fileName();
    if (name == QLatin1String("Lang.ini"))
        return Check_Language_File(request, out);
    if (name.endsWith(QLatin1String(".ini"), Qt::CaseInsensitive))
        return Check_Config_File(request, out);
    // Further kinds plug in here: one branch per kind calling a function of
    // its own file with the request's file and out.
    if (name.endsWith(QLatin1String(".sub"), Qt::CaseInsensitive))
        return Check_Subtitle_File(request.file, out);
    if (name.endsWith(QLatin1String(".orx"), Qt::CaseInsensitive)
        || name.endsWith(QLatin1String(".m3u"), Qt::CaseInsensitive))
        return Check_Playlist_File(request.file, out);
    QTextStream(stderr) << "orvane --check: no check for files such as " << name << Qt::endl;
    return Not_Understood;
}

} // namespace

int Run_Check(const QString& file, const std::optional<QString>& language, const QString& program_name)
{
    // Fonts and the program's folder need an application object; the check
    // shows nothing, so it runs without a display.
    std::unique_ptr<QGuiApplication> application;
    QByteArray program = program_name.toLocal8Bit();
    QByteArray platform_option = "-platform";
    QByteArray platform = "offscreen";
    int argc = 3;
    char* argv[] = {program.data(), platform_option.data(), platform.data(), nullptr};
    if (!QCoreApplication::instance())
        application = std::make_unique<QGuiApplication>(argc, argv);
    QTextStream out(stdout);
    return Dispatch(Check_Request{file, language}, out);
}

} // namespace Orvane
