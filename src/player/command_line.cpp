#include "player/command_line.h"

#include "player/playback_session.h"
#include "player/track_source.h"

#include <QDir>
#include <QFileInfo>

namespace Orvane {

namespace {
bool Is_Switch(const QString& argument)
{
    return argument.startsWith(u'/') || argument == QLatin1String("--play");
}

QString Resolve_File(const QString& file, const QString& program_folder, const QString& current_directory)
{
    if (file.contains(u'/'))
        return QDir::cleanPath(QDir(current_directory).absoluteFilePath(file));
    const QString beside_program = QDir(program_folder).filePath(file);
    const QString in_current = QDir(current_directory).filePath(file);
    if (!QFileInfo::exists(beside_program) && QFileInfo::exists(in_current))
        return QDir::cleanPath(in_current);
    return QDir::cleanPath(beside_program);
}
} // namespace

std::optional<Command_Line_Request> Parse_Command_Line(const QStringList& arguments,
                                                       const QString& program_folder,
                                                       const QString& current_directory)
{
    if (arguments.isEmpty() || arguments.first().isEmpty())
        return std::nullopt;
    Command_Line_Request request;
    request.File = Resolve_File(arguments.first(), program_folder, current_directory);
    const QString suffix = QFileInfo(request.File).suffix();
    request.Is_Playlist = suffix.compare(QLatin1String("orx"), Qt::CaseInsensitive) == 0
                       || suffix.compare(QLatin1String("m3u"), Qt::CaseInsensitive) == 0;
    for (qsizetype i = 1; i < arguments.size(); ++i)
        request.Play_Now = request.Play_Now || Is_Switch(arguments[i]);
    return request;
}

void Open_Command_Line_File(const Command_Line_Request& request, const Command_Line_Openers& openers,
                            Playback_Session& session)
{
    const bool play_now = request.Play_Now;
    const auto play = [&session, play_now](int added_track) {
        if (play_now && added_track >= 1)
            session.Play_Track_Number(added_track);
    };
    if (request.Is_Playlist) {
        if (openers.Load_Playlist)
            openers.Load_Playlist(request.File,
                                  [&session, play] { play(session.Context().tracks.Track_Count() >= 1 ? 1 : 0); });
    } else if (openers.Add_Media) {
        openers.Add_Media(request.File, play);
    }
}

} // namespace Orvane
