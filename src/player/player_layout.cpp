#include "player/player_layout.h"

namespace Orvane::Player_Layout {

namespace {

struct Button_Design {
    int left;
    int width;
    int height;
    const char* picture;
};

// The transport keys share one row with a common centre line (106 px):
// round keys are 34 px high at top 89, long keys 30 px high at top 91. The
// command keys sit on the row at 55 px, the volume keys in a column at the
// right with the gauge beside them.
constexpr std::array<Button_Design, Button_Count> Buttons = {{
    {264, 36, 30, "button_open"},
    {74, 42, 30, "button_play"},
    {170, 42, 30, "button_stop"},
    {122, 42, 30, "button_pause"},
    {404, 28, 24, "button_fullscreen"},
    {436, 28, 24, "button_subtitles"},
    {468, 28, 24, "button_config"},
    {500, 28, 24, "button_playlist"},
    {542, 30, 24, "button_volume_up"},
    {542, 30, 24, "button_volume_down"},
    {218, 34, 34, "button_next"},
    {310, 34, 34, "button_audio"},
    {34, 34, 34, "button_previous"},
}};

} // namespace

QRect Button_Place(int index)
{
    const Button_Design& design = Buttons.at(std::size_t(index));
    return QRect(design.left, Button_Tops.at(std::size_t(index)), design.width, design.height);
}

QString Button_Picture(int index)
{
    return QString::fromLatin1(Buttons.at(std::size_t(index)).picture);
}

QRect Progress_Cursor_Place(int left)
{
    return QRect(QPoint(Progress_Track.left() + left - Progress_Cursor_Size.width() / 2,
                        Progress_Track.top()),
                 Progress_Cursor_Size);
}

std::vector<Layout_Item> Layout_Items()
{
    std::vector<Layout_Item> items;
    for (int index = 0; index < Button_Count; ++index)
        items.push_back({QStringLiteral("Img_Btn(%1)").arg(index), Button_Place(index)});
    items.push_back({QStringLiteral("Img_Vol"), Volume_Gauge});
    items.push_back({QStringLiteral("Lbl_Affichage_Temps"), Time_Label});
    items.push_back({QStringLiteral("Lbl_Indic_Type_Temps"), Time_Mode_Label});
    items.push_back({QStringLiteral("Lbl_Affichage_Rang"), Track_Number_Label});
    items.push_back({QStringLiteral("Lbl_Affichage_Fichier"), Title_Label});
    items.push_back({QStringLiteral("Lbl_Quitter"), Quit_Label});
    items.push_back({QStringLiteral("Lbl_Avancement"), Progress_Track});
    items.push_back({QStringLiteral("Label1"), Caption_Label});
    items.push_back({QStringLiteral("Img_Temoin_ML"), Audio_Lamp});
    items.push_back({QStringLiteral("Lbl_Affichage_ML"), Audio_Label});
    items.push_back({QStringLiteral("Img_Temoin_ST"), Subtitle_Lamp});
    items.push_back({QStringLiteral("Lbl_Affichage_Sub"), Subtitle_Label});
    return items;
}

} // namespace Orvane::Player_Layout
