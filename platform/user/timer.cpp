// The list of timers.
#include "user/timer.h"

#include <algorithm>

#include "host/moment.h"
#include "user/table.h"

namespace user {

namespace {

std::vector<Timer> timers;

std::vector<Timer>::iterator first()
{
    return std::min_element(timers.begin(), timers.end(), [](const Timer &a, const Timer &b) {
        return host::isBefore(a.due, b.due);
    });
}

bool eraseTimer(HWND window, UINT id)
{
    return std::erase_if(timers, [&](const Timer &each) {
               return each.window == window && each.id == id;
           }) != 0;
}

} // namespace

std::optional<MSG> takeTimerMessage(DWORD now)
{
    const auto timer = first();
    if (timer == timers.end() || host::isBefore(now, timer->due)) {
        return std::nullopt;
    }
    // Moments missed meanwhile are skipped.
    timer->due += ((now - timer->due) / timer->period + 1) * timer->period;
    return MSG{timer->window, WM_TIMER, timer->id, 0, now, {}};
}

std::optional<DWORD> nextTimerMoment()
{
    const auto timer = first();
    return timer == timers.end() ? std::nullopt : std::optional(timer->due);
}

void dropTimersOf(HWND window)
{
    std::erase_if(timers, [&](const Timer &each) { return each.window == window; });
}

void forgetTimers() { timers.clear(); }

const std::vector<Timer> &liveTimers() { return timers; }

} // namespace user

UINT SetTimer(HWND window, UINT id, UINT period, TIMERPROC)
{
    constexpr DWORD longestPeriod = 0x7FFFFFFF;
    const user::Window *record = user::find(window);
    if (!record || record->destroying) {
        return 0;
    }
    user::eraseTimer(record->handle, id);
    const DWORD length = std::clamp<DWORD>(period, 1, longestPeriod);
    user::timers.push_back({record->handle, id, length, GetTickCount() + length});
    return std::max<UINT>(id, 1);
}

BOOL KillTimer(HWND window, UINT id)
{
    return user::eraseTimer({window.value & ~1U}, id) ? TRUE : FALSE;
}
