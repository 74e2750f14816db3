// Finds the window that a stylus event is for.
#include "user/stylus.h"

#include "user/focus.h"
#include "user/order.h"
#include "user/table.h"

namespace user {

namespace {

POINT position{};

/// The frontmost window of a list at a point of the screen, or its child at that point.
Window *windowAt(const std::vector<Window *> &siblings, POINT point)
{
    Window *found = firstOf(siblings, [&](const Window *each) {
        return each->shown() && PtInRect(&each->rect, point) != FALSE;
    });
    Window *child = found ? windowAt(found->children, point) : nullptr;
    return child ? child : found;
}

UINT messageOf(host::Event::Kind kind)
{
    return kind == host::Event::Kind::StylusDown   ? WM_LBUTTONDOWN
           : kind == host::Event::Kind::StylusMove ? WM_MOUSEMOVE
                                                   : WM_LBUTTONUP;
}

} // namespace

std::optional<MSG> handleStylus(const host::Event &event)
{
    position = {event.x, event.y};
    const UINT message = messageOf(event.kind);
    Window *target = find(GetCapture());
    const bool captured = target != nullptr;
    if (!captured) {
        target = windowAt(topLevelWindows(), position);
    }
    if (!target || !target->reallyEnabled()) {
        return std::nullopt;
    }
    const HWND handle = target->handle;
    if (message == WM_LBUTTONDOWN && !captured && target->topLevel().activatable()) {
        activate(target->topLevel().handle, WA_CLICKACTIVE);
        target = find(handle);
        if (!target) {
            return std::nullopt;
        }
    }
    constexpr WPARAM leftButton = 1;
    const POINT origin = target->origin();
    return MSG{handle,
               message,
               message == WM_LBUTTONUP ? 0 : leftButton,
               MAKELPARAM(position.x - origin.x, position.y - origin.y),
               0,
               position};
}

POINT stylusPosition() { return position; }

void forgetStylus() { position = {}; }

} // namespace user
