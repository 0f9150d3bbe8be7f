#pragma once

#include <QByteArray>
#include <QString>

#include <utility>
#include <vector>

namespace Orvane::Test {

// An M3U playlist as the player writes one: each entry its title and file,
// each said to last `seconds`.
inline QByteArray M3u(const std::vector<std::pair<QString, QString>>& entries, int seconds = 3)
{
    QString text = QStringLiteral("#EXTM3U\r\n");
    for (const auto& [title, file] : entries)
        text += QStringLiteral("#EXTINF:%1,%2\r\n%3\r\n").arg(seconds).arg(title, file);
    return text.toUtf8();
}

// The player's own playlist of one track with its subtitle file.
inline QByteArray Orx_Track(const QString& title, const QString& media, const QString& subtitle = {})
{
    return QStringLiteral("#EXTORX\r\n#TRACK\r\nTitre=%1\r\nMedia=%2\r\nAudio=\r\nSousT=%3\r\n")
        .arg(title, media, subtitle)
        .toUtf8();
}

// A subtitle file of one entry at 00:00:01, cleared at 00:00:02.
inline QByteArray One_Subtitle(const QString& line)
{
    return QStringLiteral("[TITLE]\r\nFilm\r\n[BEGIN]\r\n***\r\n[00:00:01]\r\n%1\r\n[00:00:02]\r\n\r\n[END]\r\n")
        .arg(line)
        .toUtf8();
}

} // namespace Orvane::Test
