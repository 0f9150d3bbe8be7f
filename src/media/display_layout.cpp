#include "media/display_layout.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace Orvane {

void Center_Display(Display_Window& window)
{
    const QSize screen = window.Screen_Size();
    QRect display = window.Display_Geometry();
    display.moveTo(Round_To_Int32((screen.width() - display.width()) / 2.0),
                   Round_To_Int32((screen.height() - display.height()) / 2.0));
    window.Set_Display_Geometry(display);
}

QSize Picture_Within_Screen(QSize video_pixels, QSize screen_twips)
{
    const int room_width = screen_twips.width() / Twips_Per_Pixel;
    const int room_height = screen_twips.height() / Twips_Per_Pixel - Video_Top_Pixels;
    const int width = video_pixels.width();
    const int height = video_pixels.height();
    if (width <= 0 || height <= 0 || (width <= room_width && height <= room_height))
        return video_pixels;
    // The side that overflows most is brought to the screen; the other keeps the shape.
    const double scale = std::min(double(std::max(room_width, 1)) / width, double(std::max(room_height, 1)) / height);
    return QSize(std::clamp(int(std::lround(width * scale)), 1, std::max(room_width, 1)),
                 std::clamp(int(std::lround(height * scale)), 1, std::max(room_height, 1)));
}

void Show_Video_Layout(Display_Window& window, QSize video_pixels)
{
    video_pixels = Picture_Within_Screen(video_pixels, window.Screen_Size());
    window.Set_Video_Geometry(QRect(0, Video_Top_Pixels, video_pixels.width(), video_pixels.height()));
    window.Set_Video_Visible(true);
    QRect display = window.Display_Geometry();
    display.setSize(QSize(video_pixels.width() * Twips_Per_Pixel,
                          video_pixels.height() * Twips_Per_Pixel + Display_Top_Bar_Twips));
    window.Set_Display_Geometry(display);
    Center_Display(window);
}

void Show_Audio_Layout(Display_Window& window)
{
    QRect display = window.Display_Geometry();
    display.setSize(QSize(Audio_Display_Width_Twips, Audio_Display_Height_Twips));
    window.Set_Display_Geometry(display);
    Center_Display(window);
    window.Set_Top_Pictures_Visible(true);
    window.Set_Video_Visible(false);
}

void Enter_Full_Screen(Display_Window& window, Full_Screen_Memory& memory, bool& full_screen)
{
    window.Set_Top_Pictures_Visible(false);
    const QRect video = window.Video_Geometry();
    const QRect display = window.Display_Geometry();
    memory.Saved_Video_Width = video.width();
    memory.Saved_Video_Height = video.height();
    memory.Saved_Display_Left = float(display.left());
    memory.Saved_Display_Top = display.top();

    const QSize screen = window.Screen_Size();
    window.Set_Display_Geometry(QRect(QPoint(0, 0), screen));
    // With no picture size to go by, the screen's own shape is taken.
    const double aspect = memory.Saved_Video_Width > 0 && memory.Saved_Video_Height > 0
        ? double(memory.Saved_Video_Width) / double(memory.Saved_Video_Height)
        : double(screen.width()) / double(std::max(1, screen.height()));
    const int32_t width = Round_To_Int32(screen.width() / double(Twips_Per_Pixel));
    const int32_t height = Round_To_Int32(screen.width() / aspect / Twips_Per_Pixel - 4);
    const int32_t top = Round_To_Int32((screen.height() / double(Twips_Per_Pixel) - height) / 2.0);
    window.Set_Video_Geometry(QRect(video.left(), top, width, height));
    full_screen = true;
}

void Leave_Full_Screen(Display_Window& window, const Full_Screen_Memory& memory, bool& full_screen)
{
    window.Set_Top_Pictures_Visible(true);
    const QRect video = window.Video_Geometry();
    window.Set_Video_Geometry(
        QRect(video.left(), Video_Top_Pixels, memory.Saved_Video_Width, memory.Saved_Video_Height));
    window.Set_Display_Geometry(QRect(Round_To_Int32(memory.Saved_Display_Left), memory.Saved_Display_Top,
                                    Twips_Per_Pixel * memory.Saved_Video_Width,
                                    Twips_Per_Pixel * memory.Saved_Video_Height + Display_Top_Bar_Twips));
    full_screen = false;
}

void Reapply_Full_Screen(Display_Window& window, Full_Screen_Memory& memory, bool& full_screen,
                         bool has_video)
{
    if (!full_screen)
        return;
    if (has_video)
        Enter_Full_Screen(window, memory, full_screen);
    else
        Show_Audio_Layout(window);
}

} // namespace Orvane
