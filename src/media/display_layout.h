#pragma once

#include <QRect>
#include <QSize>
#include <cstdint>

namespace Orvane {

constexpr int Twips_Per_Pixel = 15;
constexpr int Display_Top_Bar_Twips = 300;  // the skinned strip above the picture
constexpr int Video_Top_Pixels = 20;
constexpr int Audio_Display_Width_Twips = 5250;
constexpr int Audio_Display_Height_Twips = 4200;

// The display window as the layout rules see it. Frm_display implements it;
// tests use a fake.
class Display_Window {
public:
    virtual ~Display_Window() = default;
    virtual QRect Display_Geometry() const = 0;  // twips, on the screen
    virtual void Set_Display_Geometry(const QRect& twips) = 0;
    virtual QRect Video_Geometry() const = 0;  // pixels, inside the display window
    virtual void Set_Video_Geometry(const QRect& pixels) = 0;
    // Img_Haut_G, Img_Haut_Centre and Img_Haut_D.
    virtual void Set_Top_Pictures_Visible(bool visible) = 0;
    // The picture, or the splash picture in its place.
    virtual void Set_Video_Visible(bool visible) = 0;
    virtual QSize Screen_Size() const = 0;  // twips: the available area of the window's screen
};

// What entering full screen keeps for leaving it.
struct Full_Screen_Memory {
    int32_t Saved_Video_Width = 0;   // pixels
    int32_t Saved_Video_Height = 0;
    float Saved_Display_Left = 0;    // twips
    int32_t Saved_Display_Top = 0;   // twips (an integer; 32 bits so a tall screen cannot overflow it)
};

// The Full_Screen flag stays with the playback state (Playback_State::Full_Screen):
// the functions that change it take it by reference.

// Left and top such that the window is in the middle of the screen.
void Center_Display(Display_Window& window);
// The picture's size in pixels, scaled down keeping its shape when the window
// around it (the picture and the 20 px top bar) would not fit in the screen's
// available area (twips); a picture that fits is kept as it is.
QSize Picture_Within_Screen(QSize video_pixels, QSize screen_twips);
// A track with a picture: the picture at (0, 20) px in its own size (first
// brought within the screen), the window around it (video width x 15 by
// video height x 15 + 300 twips), centred.
void Show_Video_Layout(Display_Window& window, QSize video_pixels);
// A track without a picture: 5250 x 4200 twips, centred, the top pictures shown.
void Show_Audio_Layout(Display_Window& window);
// The picture across the whole screen, as wide as the screen and 4 px less
// high than its aspect asks (kept so), centred vertically.
void Enter_Full_Screen(Display_Window& window, Full_Screen_Memory& memory, bool& full_screen);
// Back to the saved size and place.
void Leave_Full_Screen(Display_Window& window, const Full_Screen_Memory& memory, bool& full_screen);
// After a new track opened with the full-screen flag set: full screen again
// for a track with a picture, the audio layout for one without. Nothing
// when the flag is not set.
void Reapply_Full_Screen(Display_Window& window, Full_Screen_Memory& memory, bool& full_screen,
                         bool has_video);

// The layout of the display window as the player drives it; tests of the
// player use a fake.
class Display_Layout {
public:
    virtual ~Display_Layout() = default;
    // The window sized to the video (width x height + its 20 px top bar), centred.
    virtual void Video_Layout(QSize video_pixels) = 0;
    // The audio picture layout: 350 x 280 px, centred, its pictures shown.
    virtual void Audio_Layout() = 0;
    virtual void Enter_Full_Screen() = 0;
    virtual void Leave_Full_Screen() = 0;
    // Lays the full-screen layout again after a new graph was opened while
    // Full_Screen is set: full screen for a track with video, the audio
    // picture layout for one without.
    virtual void Reapply_Full_Screen(bool has_video) = 0;
};

// The routines above bound to one display window, its full-screen memory and
// the Full_Screen flag of the playback state.
class Display_Window_Layout : public Display_Layout {
public:
    Display_Window_Layout(Display_Window& window, bool& full_screen) : window_(window), full_screen_(full_screen) {}

    void Video_Layout(QSize video_pixels) override { Show_Video_Layout(window_, video_pixels); }
    void Audio_Layout() override { Show_Audio_Layout(window_); }
    void Enter_Full_Screen() override { Orvane::Enter_Full_Screen(window_, memory_, full_screen_); }
    void Leave_Full_Screen() override { Orvane::Leave_Full_Screen(window_, memory_, full_screen_); }
    void Reapply_Full_Screen(bool has_video) override
    {
        Orvane::Reapply_Full_Screen(window_, memory_, full_screen_, has_video);
    }
    const Full_Screen_Memory& Memory() const { return memory_; }

private:
    Display_Window& window_;
    bool& full_screen_;
    Full_Screen_Memory memory_;
};

} // namespace Orvane
