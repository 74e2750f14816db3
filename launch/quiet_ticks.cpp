// Looks at the game and at the handheld's timers.
#include "launch/quiet_ticks.h"

#include <algorithm>

#include "app/game_app.h"
#include "user/program_window.h"
#include "user/timer.h"

std::uint32_t lastQuietTick(std::uint32_t tick, int longest)
{
    const auto &timers = user::liveTimers();
    if (gameApp.appState != AppState::Playing || timers.size() != 1 ||
        timers[0].window != user::programWindow())
    {
        return tick;
    }
    const auto change = gameApp.session.nextChange(gameApp.input);
    const int quiet = change ? timing::between(static_cast<std::int32_t>(tick), *change) : longest;
    const int ticks = (std::clamp(quiet, 0, longest) + timing::tick - 1) / timing::tick;
    return tick + static_cast<std::uint32_t>(ticks * timing::tick);
}
