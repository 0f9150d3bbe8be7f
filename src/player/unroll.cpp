#include "player/unroll.h"

#include "player/player_view.h"
#include "player/time_display.h"

namespace Orvane {

Player_Unroll::Player_Unroll(Player_View& player_view) : player_view_(player_view)
{
    timer_.setInterval(Tick_Interval_Ms);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
        if (Tick() && when_unrolled_)
            when_unrolled_();
    });
}

void Player_Unroll::Start(std::function<void()> when_unrolled)
{
    when_unrolled_ = std::move(when_unrolled);
    timer_.start();
}

bool Player_Unroll::Tick()
{
    if (unroll_height_ != Full_Height_Twips) {
        unroll_height_ = int16_t(unroll_height_ + Step_Twips);
        player_view_.Set_Window_Height(unroll_height_ / Twips_Per_Pixel);
        return false;
    }
    timer_.stop();
    return true;
}

} // namespace Orvane
