// Painting: invalid parts, device contexts on windows, and the frame for the host.
#include "user/paint.h"

#include <algorithm>
#include <utility>

#include "gdi/rect.h"
#include "host/current.h"
#include "user/order.h"
#include "user/table.h"

namespace user {

namespace {

/// The screen itself, for drawing outside of all windows.
struct WholeScreen final : gdi::ScreenArea
{
    gdi::Region region;

    POINT origin() const override { return {0, 0}; }
    SIZE size() const override { return {gdi::screen().width, gdi::screen().height}; }
    const gdi::Region &visible() const override { return region; }
};

WholeScreen wholeScreen;

/// Whether a visible part of the window is invalid.
bool needsPaint(Window &window)
{
    if (!window.invalid.empty()) {
        window.invalid.intersect(window.visible());
    }
    return !window.invalid.empty();
}

/// The first window to be painted in a list of windows and their children.
Window *findToPaint(const std::vector<Window *> &windows)
{
    for (Window *window : windows) {
        Window *found = needsPaint(*window) ? window : findToPaint(window->children);
        if (found) {
            return found;
        }
    }
    return nullptr;
}

HDC openDC(Window &window, const std::optional<gdi::Region> &within)
{
    const HDC dc = gdi::openScreenDC(window, within);
    if (dc) {
        window.openDCs.push_back(dc);
    }
    return dc;
}

bool closeDC(Window &window, HDC dc)
{
    return std::erase(window.openDCs, dc) != 0 && gdi::closeScreenDC(dc);
}

} // namespace

void invalidate(Window &window, const gdi::Region &part, bool erase)
{
    gdi::Region seen = part;
    seen.intersect(window.visible());
    if (!seen.empty()) {
        window.invalid.add(seen);
        window.erasePending = window.erasePending || erase;
    }
}

void invalidateAll(Window &window)
{
    for (Window *each : familyOf(window)) {
        invalidate(*each, each->rect, true);
    }
}

std::optional<MSG> takePaintMessage()
{
    const Window *window = findToPaint(topLevelWindows());
    return window ? std::optional(MSG{window->handle, WM_PAINT, 0, 0, 0, {}}) : std::nullopt;
}

void presentFrame()
{
    gdi::Screen &screen = gdi::screen();
    const RECT changed = screen.changed;
    if (gdi::isEmpty(changed)) {
        return;
    }
    screen.changed = {};
    host::current().present({screen.pixels.data(), screen.width, screen.height},
                            {changed.left, changed.top, changed.right, changed.bottom});
}

} // namespace user

HDC BeginPaint(HWND window, PAINTSTRUCT *paint)
{
    user::Window *record = user::find(window);
    if (!record || !paint) {
        return {};
    }
    user::needsPaint(*record);
    const gdi::Region part = std::move(record->invalid);
    record->invalid.clear();
    const bool erase = std::exchange(record->erasePending, false);
    paint->hdc = user::openDC(*record, part);
    const POINT origin = record->origin();
    paint->rcPaint = part.empty() ? RECT{} : gdi::moved(part.bounds(), -origin.x, -origin.y);
    const HDC dc = paint->hdc;
    paint->fErase =
        erase && SendMessageW(record->handle, WM_ERASEBKGND, dc.value, 0) == 0 ? TRUE : FALSE;
    return dc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT *paint)
{
    user::Window *record = user::find(window);
    return record && paint && user::closeDC(*record, paint->hdc) ? TRUE : FALSE;
}

HDC GetDC(HWND window)
{
    if (!window) {
        user::wholeScreen.region = user::screenRect();
        return gdi::openScreenDC(user::wholeScreen, std::nullopt);
    }
    user::Window *record = user::find(window);
    return record ? user::openDC(*record, std::nullopt) : HDC{};
}

int ReleaseDC(HWND window, HDC dc)
{
    if (!window) {
        return gdi::closeScreenDC(dc) ? 1 : 0;
    }
    user::Window *record = user::find(window);
    return record && user::closeDC(*record, dc) ? 1 : 0;
}

BOOL InvalidateRect(HWND window, const RECT *rect, BOOL erase)
{
    user::Window *record = user::find(window);
    if (!record) {
        return FALSE;
    }
    const POINT origin = record->origin();
    const RECT part = rect ? gdi::moved(*rect, origin.x, origin.y) : record->rect;
    user::invalidate(*record, part, erase != FALSE);
    return TRUE;
}

BOOL UpdateWindow(HWND window)
{
    user::Window *record = user::find(window);
    if (!record) {
        return FALSE;
    }
    const std::vector<HWND> children = user::handlesOf(record->children);
    if (user::needsPaint(*record)) {
        SendMessageW(window, WM_PAINT, 0, 0);
    }
    for (const HWND child : children) {
        UpdateWindow(child);
    }
    return TRUE;
}
