// Finding windows and bringing them to the front. The host knows whether another process runs the
// program too.
#include "base/names.h"
#include "host/current.h"
#include "user/focus.h"
#include "user/order.h"
#include "user/table.h"

namespace user {

namespace {

/// Stands for the main window of the program in the other process.
constexpr HWND otherProcess{0xFFFFFFF0U};

bool matches(const Window &window, LPCWSTR className, LPCWSTR title)
{
    return (!className || base::sameName(window.windowClass->name, className)) &&
           (!title || window.text == title);
}

/// The topmost window, among a window and those it owns, that is shown and enabled.
HWND topmostOf(const Window &window)
{
    const Window *found = firstOf(topLevelWindows(), [&](const Window *each) {
        return belongsTo(*each, window) && each->shown() && each->enabled() && each->activatable();
    });
    return found ? found->handle : window.handle;
}

} // namespace

} // namespace user

HWND FindWindowW(LPCWSTR className, LPCWSTR title)
{
    const user::Window *found =
        user::firstOf(user::topLevelWindows(), [&](const user::Window *each) {
            return user::matches(*each, className, title);
        });
    if (found) {
        return found->handle;
    }
    return host::current().runsElsewhere() ? user::otherProcess : HWND{};
}

BOOL SetForegroundWindow(HWND window)
{
    constexpr std::uint32_t withOwned = 1;
    const bool owned = (window.value & withOwned) != 0;
    if ((window.value & ~withOwned) == user::otherProcess.value) {
        host::current().raiseOther();
        return TRUE;
    }
    const user::Window *record = user::find(window);
    if (!record || record->parent) {
        return FALSE;
    }
    if (!user::inForeground()) {
        host::current().raise();
    }
    SetActiveWindow(owned ? user::topmostOf(*record) : record->handle);
    return TRUE;
}
