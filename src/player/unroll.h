#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>

namespace Orvane {

class Player_View;

// The start-up animation of the display window's timer: the player window
// unrolls by 300 twips (20 px) every 50 ms until it is 3900 twips high;
// the tick after that stops the timer and hands over to the command line.
class Player_Unroll {
public:
    static constexpr int Tick_Interval_Ms = 50;
    static constexpr int16_t Step_Twips = 300;
    static constexpr int16_t Full_Height_Twips = 3900;

    explicit Player_Unroll(Player_View& player_view);

    // Starts Timer_Display; when_unrolled runs once, on the last tick.
    void Start(std::function<void()> when_unrolled);
    // One tick of Timer_Display. True on the tick that finds the window fully
    // unrolled (the timer is then stopped).
    bool Tick();

    int16_t Unroll_Height() const { return unroll_height_; }
    QTimer& Timer_Display() { return timer_; }

private:
    Player_View& player_view_;
    int16_t unroll_height_ = 0;
    QTimer timer_;
    std::function<void()> when_unrolled_;
};

} // namespace Orvane
