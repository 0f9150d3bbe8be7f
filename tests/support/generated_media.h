#pragma once

#include <QString>

namespace Orvane::Test {

// Media files generated once per build folder (test-media-v1, or the folder
// named by ORVANE_TEST_MEDIA_DIR) and shared by every test.
struct Generated_Media {
    QString Avi_Three_Streams;  // 320x240 MPEG-4, 4 s, MP3 tones 440, 660, 880 Hz
    QString Avi_One_Stream;     // 320x240 MPEG-4, 3 s, MP3 tone 440 Hz
    QString Vcd_Dat;            // MPEG-1 system stream, 352x288, 3 s, MP2 tone 550 Hz, named *.dat
    QString Wav;                // 3 s, 1000 Hz
    QString Mp3;                // 3 s, 770 Hz
    QString Mp2;                // 3 s, 330 Hz
    QString Associated_Wav;     // 4 s, 1320 Hz: another language for the AVIs
    QString Not_Media;          // text that is no media at all, named *.avi
    QString Truncated_Avi;      // the first 3000 bytes of the three-stream AVI
    QString Half_Avi;           // the first half of the three-stream AVI: its header says 4 s, 2 s play
};

// Generates the files on first use; fails the calling test if it cannot.
const Generated_Media& Media();

} // namespace Orvane::Test
