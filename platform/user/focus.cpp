// Activation, focus and capture. A disabled window can have none of them. Every message sent on the
// way may change all three or destroy any window, so handles are looked up anew after each.
#include "user/focus.h"

#include <utility>

#include "user/keys.h"
#include "user/order.h"
#include "user/shell_interface.h"
#include "user/table.h"
#include "user/visible.h"

namespace user {

namespace {

struct Attention
{
    HWND active;
    HWND focus;
    HWND capture;
    HWND activeBefore; ///< the active window when another program came to the front
    bool inForeground = true;
    unsigned activations = 0; ///< so far, to notice one inside another
    unsigned captures = 0;
};

Attention attention;

bool canBeActivated(const Window &window)
{
    return window.shown() && window.enabled() && window.activatable() && !window.destroying;
}

/// The next active window after `leaving`: its nearest owner that can be active, else the topmost
/// window that can.
HWND successorOf(const Window &leaving)
{
    for (const Window *owner = leaving.owner; owner; owner = owner->owner) {
        if (canBeActivated(*owner)) {
            return owner->handle;
        }
    }
    return handleOf(firstOf(topLevelWindows(), [&](const Window *each) {
        return each != &leaving && canBeActivated(*each);
    }));
}

/// Moves the focus from a control that cannot have it any more to its parent.
void leaveFocus(const Window &window)
{
    if (isWithin(attention.focus, window.handle)) {
        moveFocus(window.parent && !window.parent->destroying ? window.parent->handle : HWND{});
    }
}

} // namespace

bool activate(HWND window, WPARAM how)
{
    const HWND previous = attention.active;
    if (previous == window) {
        return true;
    }
    const unsigned turn = ++attention.activations;
    attention.active = {};
    SendMessageW(previous, WM_ACTIVATE, WA_INACTIVE, static_cast<LPARAM>(window.value));
    Window *next = find(window);
    if (turn != attention.activations || (window && !next)) {
        return false;
    }
    if (!next) {
        moveFocus({});
        theShell->activeWindowChanged();
        return true;
    }
    {
        const VisibilityChange change;
        bringToTop(*next);
    }
    attention.active = window;
    theShell->activeWindowChanged();
    SendMessageW(window, WM_ACTIVATE, how, static_cast<LPARAM>(previous.value));
    if (attention.active == window && !isWithin(attention.focus, window)) {
        moveFocus(window);
    }
    return attention.active == window;
}

void leaveWindow(HWND handle)
{
    if (isWithin(attention.capture, handle)) {
        ReleaseCapture();
    }
    const Window *window = find(handle);
    if (window && attention.active == handle) {
        activate(attention.inForeground ? successorOf(*window) : HWND{}, WA_ACTIVE);
        window = find(handle);
    }
    if (window) {
        leaveFocus(*window);
    }
}

void moveFocus(HWND window)
{
    const HWND previous = attention.focus;
    if (previous == window) {
        return;
    }
    attention.focus = window;
    SendMessageW(previous, WM_KILLFOCUS, window.value, 0);
    if (attention.focus != window) {
        return;
    }
    theShell->focusMoved(window);
    if (attention.focus == window) {
        SendMessageW(window, WM_SETFOCUS, previous.value, 0);
    }
}

HWND keyWindow()
{
    const Window *window = find(attention.focus ? attention.focus : attention.active);
    return window && attention.inForeground && window->reallyEnabled() ? window->handle : HWND{};
}

void leaveForeground()
{
    if (!attention.inForeground) {
        return;
    }
    attention.inForeground = false;
    releaseAllKeys();
    ReleaseCapture();
    attention.activeBefore = attention.active;
    activate({}, WA_INACTIVE);
}

void comeToForeground()
{
    if (attention.inForeground) {
        return;
    }
    attention.inForeground = true;
    if (attention.active) {
        return; // a window opened meanwhile
    }
    const Window *window = find(attention.activeBefore);
    if (!window || !canBeActivated(*window)) {
        window =
            firstOf(topLevelWindows(), [](const Window *each) { return canBeActivated(*each); });
    }
    activate(handleOf(window), WA_ACTIVE);
}

bool inForeground() { return attention.inForeground; }

unsigned captureCount() { return attention.captures; }

void forgetFocus() { attention = {}; }

} // namespace user

using user::attention;

HWND GetActiveWindow() { return attention.active; }

HWND SetActiveWindow(HWND window)
{
    user::Window *record = user::find(window);
    if (!record || record->parent || !record->activatable() || record->destroying) {
        return {};
    }
    const HWND previous = attention.active;
    if (previous == record->handle) {
        const user::VisibilityChange change;
        user::bringToTop(*record);
        return previous;
    }
    user::activate(record->handle, WA_ACTIVE);
    return previous;
}

HWND GetFocus() { return attention.focus; }

HWND SetFocus(HWND window)
{
    const HWND previous = attention.focus;
    if (!window) {
        user::moveFocus({});
        return previous;
    }
    user::Window *record = user::find(window);
    if (!record || record->destroying || !record->reallyEnabled() ||
        !record->topLevel().activatable()) {
        return {};
    }
    if (!user::activate(record->topLevel().handle, WA_ACTIVE)) {
        return {};
    }
    record = user::find(window);
    if (record) {
        user::moveFocus(record->handle);
    }
    return previous;
}

HWND SetCapture(HWND window)
{
    const user::Window *record = user::find(window);
    if (!record || record->destroying) {
        return {};
    }
    const HWND previous = std::exchange(attention.capture, record->handle);
    ++attention.captures;
    if (previous && previous != record->handle) {
        SendMessageW(previous, WM_CAPTURECHANGED, 0, static_cast<LPARAM>(record->handle.value));
    }
    return previous;
}

BOOL ReleaseCapture()
{
    const HWND previous = std::exchange(attention.capture, HWND{});
    if (!previous) {
        return FALSE;
    }
    SendMessageW(previous, WM_CAPTURECHANGED, 0, 0);
    return TRUE;
}

HWND GetCapture() { return attention.capture; }

BOOL EnableWindow(HWND window, BOOL enable)
{
    user::Window *record = user::find(window);
    if (!record) {
        return FALSE;
    }
    const bool wasDisabled = !record->enabled();
    if (wasDisabled == (enable == FALSE)) {
        return wasDisabled ? TRUE : FALSE;
    }
    record->style ^= WS_DISABLED;
    if (!enable) {
        const HWND self = record->handle;
        SendMessageW(self, WM_CANCELMODE, 0, 0);
        if (user::isWithin(GetCapture(), self)) {
            ReleaseCapture(); // else the stylus would go nowhere
        }
        if (user::isWithin(GetFocus(), self)) {
            SetFocus({});
        }
    }
    SendMessageW(window, WM_ENABLE, enable ? TRUE : FALSE, 0);
    return wasDisabled ? TRUE : FALSE;
}
