#pragma once

#include <QString>

namespace Orvane {

class Text_Table;

// The five filter strings of the open and save dialogs, each a description,
// a NUL character and the pattern list. The spacing before the parenthesis
// differs from one to the other and is part of the format.
struct Open_Dialog_Filters {
    QString Filter_Media;
    QString Filter_Subtitles;
    QString Filter_Playlists;
    QString Filter_Own_Playlist;
    QString Filter_Audio;
};

// Built at start-up from texts 701 to 704 of the chosen language.
Open_Dialog_Filters Build_Open_Dialog_Filters(const Text_Table& texts);

} // namespace Orvane
