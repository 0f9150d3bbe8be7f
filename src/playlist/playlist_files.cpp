#include "playlist/playlist_files.h"

#include "base/reader_error.h"
#include "base/text_file.h"
#include "config/settings.h"
#include "language/text_table.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Orvane {

namespace {

constexpr int16_t Load_Mode = 1;
constexpr int16_t Text_Subtitle_Path_Too_Short = 1208;
constexpr int16_t Text_Playlist_Not_Saved = 1209;

QString Slashed(QString path)
{
    return path.replace(u'\\', u'/');
}

QString Without_Trailing_Separator(QString folder)
{
    while (folder.size() > 1 && (folder.endsWith(u'/') || folder.endsWith(u'\\')))
        folder.chop(1);
    return folder;
}

QString Audio_Text(const Track_Record& track)
{
    const qsizetype count = std::min<qsizetype>(track.Associated_Count, qsizetype(track.Associated_Audio.size()));
    QStringList paths;
    for (qsizetype j = 0; j < count; ++j)
        paths.append(track.Associated_Audio[size_t(j)].Path);
    return paths.join(u';');
}

// Reads the own format and the extended M3U format line by line; a read past
// the end leaves through Reader_Error.
class Playlist_File_Reader {
public:
    Playlist_File_Reader(const QString& file_name, const Settings& settings, const Text_Table& texts,
                         Playlist_Load_Target& target)
        : file_(file_name), settings_(settings), texts_(texts), target_(target)
    {
    }

    Playlist_Load_Result Read()
    {
        if (file_.At_End())
            return Playlist_Load_Result::Not_A_Playlist;
        const QString header = file_.Read_Line().toUpper();
        if (header == QLatin1String("#EXTM3U"))
            Read_M3u();
        else if (header == QLatin1String("#EXTORX"))
            Read_Own_Format();
        else
            return Playlist_Load_Result::Not_A_Playlist;
        return Playlist_Load_Result::Loaded;
    }

private:
    void Read_Own_Format()
    {
        int entry = 0;
        while (!file_.At_End()) {
            ++entry;
            Expect_Key(file_.Read_Line(), QStringLiteral("#TRACK"), false);
            const QString title = Expect_Key(file_.Read_Line(), QStringLiteral("TITRE="), true);
            const QString media = Expect_Key(file_.Read_Line(), QStringLiteral("MEDIA="), true);
            const QString audio = Expect_Key(file_.Read_Line(), QStringLiteral("AUDIO="), true);
            const QString subtitle = Expect_Key(file_.Read_Line(), QStringLiteral("SOUST="), true);

            // Every ";" starts a piece, so empty pieces are kept and counted.
            QStringList audio_paths;
            if (!audio.isEmpty())
                for (const QString& piece : audio.split(u';', Qt::KeepEmptyParts))
                    audio_paths.append(Slashed(piece));

            bool disc_change = false;
            const QString media_path = Slashed(Resolve_Disc(media, disc_change));
            target_.Add_Track(media_path, audio_paths, disc_change, title, entry, Load_Mode);

            if (subtitle.size() > 6)
                target_.Associate_Subtitle(Slashed(subtitle));
            else if (!subtitle.isEmpty())
                target_.Show_Error(texts_.Get_Text(Text_Subtitle_Path_Too_Short));
        }
    }

    // A key line that is not the one expected only beeps: the line is taken
    // all the same, its value from the seventh character on.
    QString Expect_Key(const QString& line, const QString& key, bool key_is_prefix)
    {
        const QString found = key_is_prefix ? line.left(key.size()) : line;
        if (found.toUpper() != key)
            target_.Beep(file_.Line_Number());
        return line.mid(6);
    }

    QString Resolve_Disc(const QString& media, bool& disc_change) const
    {
        const QString marker = media.left(7);
        const QString rest = media.mid(7);
        if (marker == QLatin1String("$$CD1$$"))
            return Without_Trailing_Separator(settings_.CD1_Drive) + rest;
        if (marker != QLatin1String("$$CD2$$"))
            return media;
        if (settings_.CD2_Drive == QLatin1String("Aucun")) {
            // The second disc goes into the only drive there is.
            disc_change = true;
            return Without_Trailing_Separator(settings_.CD1_Drive) + rest;
        }
        return Without_Trailing_Separator(settings_.CD2_Drive) + rest;
    }

    void Read_M3u()
    {
        // Every line taken here counts, the skipped ones too, so an entry number
        // of 1 (which replaces the playlist) only goes to an "#EXTINF" on line 2.
        int entry = 0;
        while (!file_.At_End()) {
            ++entry;
            const QString line = file_.Read_Line();
            if (!line.startsWith(QLatin1String("#EXTINF")))
                continue;
            const qsizetype comma = line.indexOf(u',');
            const QString title = comma < 0 ? QString() : line.mid(comma + 1);
            const QString media_path = M3u_Media_Path(file_.Read_Line());
            target_.Add_Track(media_path, {}, false, title, entry, Load_Mode);
        }
    }

    static QString M3u_Media_Path(const QString& line)
    {
        const bool absolute = line.startsWith(u'/') || line.mid(1, 2) == QLatin1String(":\\");
        if (absolute)
            return Slashed(line);
        // The process's current directory, not the playlist's folder: the open
        // dialog has made them the same when the user chose the file.
        QString folder = QDir::currentPath();
        if (!folder.endsWith(u'/'))
            folder += u'/';
        return folder + Slashed(line);
    }

    Text_File_Reader file_;
    const Settings& settings_;
    const Text_Table& texts_;
    Playlist_Load_Target& target_;
};

} // namespace

bool Save_Playlist(const QString& file_name, const std::vector<Track_Record>& tracks, int list_count,
                   const Text_Table& texts)
{
    QStringList lines{QStringLiteral("#EXTORX")};
    const int last = std::min(list_count, int(tracks.size()) - 1);
    for (int i = 1; i <= last; ++i) {
        const Track_Record& track = tracks[size_t(i)];
        lines << QStringLiteral("#TRACK") << QStringLiteral("Titre=") + track.Title
              << QStringLiteral("Media=") + track.Path << QStringLiteral("Audio=") + Audio_Text(track)
              << QStringLiteral("SousT=") + track.Subtitle_Path;
    }
    const Save_Result result = Write_Text_Lines(file_name, lines);
    if (!result)
        Message_Box(texts.Get_Text(Text_Playlist_Not_Saved) + u'\n' + file_name + u'\n' + result.reason, Box_Style::Critical_Ok);
    return result.saved;
}

Playlist_Load_Result Load_Playlist(const QString& file_name, const Settings& settings,
                                   const Text_Table& texts, Playlist_Load_Target& target)
{
    try {
        return Playlist_File_Reader(file_name, settings, texts, target).Read();
    } catch (const Reader_Error& error) {
        target.Show_Error(QFileInfo(file_name).fileName() + u'\n' + QString::number(error.Number())
                          + QStringLiteral(", ") + error.Description());
        return Playlist_Load_Result::Failed;
    }
}

} // namespace Orvane
