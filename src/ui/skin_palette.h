#pragma once

#include <QColor>
#include <QFont>

namespace Orvane::Skin_Palette {

// The colours of the text drawn over the skin pictures; they match the
// pictures' own accent and graphite tones.
inline const QColor Accent{0x4c, 0xcf, 0xf5};
inline const QColor Display_Text{0x9d, 0xe6, 0xff};  // title on the dark display
inline const QColor Display_Dim{0x5b, 0x8a, 0x9e};   // captions on the dark display
inline const QColor Panel_Text{0xc3, 0xcb, 0xd5};    // text on the graphite surface
inline const QColor Panel_Dim{0x7c, 0x86, 0x93};
inline const QColor Panel_Hover{0xf2, 0xf6, 0xfa};

// The graphite surfaces of the skin, from the deepest to the most raised;
// message boxes and the toolkit's dialogs are painted with them too.
inline const QColor Surface_Deep{0x1b, 0x1e, 0x23};
inline const QColor Surface{0x2b, 0x2f, 0x35};
inline const QColor Surface_Raised{0x3b, 0x40, 0x48};
inline const QColor Outline{0x07, 0x08, 0x0a};
inline const QColor Selection{0x1b, 0x5f, 0x7a};  // the accent, darkened under light text

// The digital-looking face of the time display.
inline QFont Time_Font(int pixel_size)
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setBold(true);
    font.setPixelSize(pixel_size);
    return font;
}

// The face of every other text on the skin.
inline QFont Label_Font(int pixel_size, bool bold = false, bool capitals = false)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixel_size);
    font.setBold(bold);
    if (capitals) {
        font.setCapitalization(QFont::AllUppercase);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.8);
    }
    return font;
}

} // namespace Orvane::Skin_Palette
