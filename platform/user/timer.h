// The timers of all windows.
#pragma once

#include <optional>
#include <vector>

#include "winuser.h"

namespace user {

/// WM_TIMER of the timer that was due first, if any is due; the timer is set to its next moment.
std::optional<MSG> takeTimerMessage(DWORD now);
/// The moment at which the next timer is due; nothing when there is none.
std::optional<DWORD> nextTimerMoment();
void dropTimersOf(HWND window);
void forgetTimers();

struct Timer
{
    HWND window;
    UINT id = 0;
    DWORD period = 0; ///< milliseconds
    DWORD due = 0;    ///< the next moment
};
/// In the order of setting, which decides between equal moments.
const std::vector<Timer> &liveTimers();

} // namespace user
