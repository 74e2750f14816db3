// Painting: invalid parts, device contexts on windows, and the frame for the host.
#include "user/paint.h"

#include <algorithm>
#include <utility>

#include "handheld.h"
#include "user/manager.h"

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

RECT toScreen(const Window &window, const RECT *rect)
{
    if (!rect) {
        return window.rect;
    }
    const POINT origin = window.origin();
    return {rect->left + origin.x, rect->top + origin.y, rect->right + origin.x,
            rect->bottom + origin.y};
}

RECT toClient(const Window &window, RECT rect)
{
    const POINT origin = window.origin();
    return {rect.left - origin.x, rect.top - origin.y, rect.right - origin.x,
            rect.bottom - origin.y};
}

/// Whether anything that can be seen of the window is invalid.
bool needsPaint(Window &window)
{
    if (!window.invalid.empty()) {
        window.invalid.intersect(window.visible());
    }
    return !window.invalid.empty();
}

/// The first of a list of windows and their children, in order, that is to be painted.
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
    if (std::erase(window.openDCs, dc) == 0) {
        return false;
    }
    gdi::closeScreenDC(dc);
    return true;
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
    invalidate(window, gdi::Region(window.rect), true);
    for (Window *child : window.children) {
        invalidateAll(*child);
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
    if (changed.left >= changed.right || changed.top >= changed.bottom) {
        return;
    }
    screen.changed = {};
    handheld::host().present({screen.pixels.data(), screen.width, screen.height},
                             {changed.left, changed.top, changed.right, changed.bottom});
}

} // namespace user

HDC BeginPaint(HWND handle, PAINTSTRUCT *paint)
{
    user::Window *window = user::find(handle);
    if (!window || !paint) {
        return {};
    }
    user::needsPaint(*window);
    const gdi::Region part = std::move(window->invalid);
    window->invalid.clear();
    const bool erase = std::exchange(window->erasePending, false);
    paint->hdc = user::openDC(*window, part);
    paint->rcPaint = part.empty() ? RECT{} : user::toClient(*window, part.bounds());
    const HDC dc = paint->hdc;
    paint->fErase =
        erase && SendMessageW(window->handle, WM_ERASEBKGND, dc.value, 0) == 0 ? TRUE : FALSE;
    return dc;
}

BOOL EndPaint(HWND handle, const PAINTSTRUCT *paint)
{
    user::Window *window = user::find(handle);
    return window && paint && user::closeDC(*window, paint->hdc) ? TRUE : FALSE;
}

HDC GetDC(HWND handle)
{
    if (!handle) {
        user::wholeScreen.region = gdi::Region(user::screenRect());
        return gdi::openScreenDC(user::wholeScreen, std::nullopt);
    }
    user::Window *window = user::find(handle);
    return window ? user::openDC(*window, std::nullopt) : HDC{};
}

int ReleaseDC(HWND handle, HDC dc)
{
    if (!handle) {
        gdi::closeScreenDC(dc);
        return 1;
    }
    user::Window *window = user::find(handle);
    return window && user::closeDC(*window, dc) ? 1 : 0;
}

BOOL InvalidateRect(HWND handle, const RECT *rect, BOOL erase)
{
    user::Window *window = user::find(handle);
    if (!window) {
        return FALSE;
    }
    user::invalidate(*window, gdi::Region(user::toScreen(*window, rect)), erase != FALSE);
    return TRUE;
}

BOOL ValidateRect(HWND handle, const RECT *rect)
{
    user::Window *window = user::find(handle);
    if (!window) {
        return FALSE;
    }
    window->invalid.subtract(user::toScreen(*window, rect));
    window->erasePending = window->erasePending && !window->invalid.empty();
    return TRUE;
}

BOOL UpdateWindow(HWND handle)
{
    user::Window *window = user::find(handle);
    if (!window) {
        return FALSE;
    }
    const std::vector<HWND> children = user::handlesOf(window->children);
    if (user::needsPaint(*window)) {
        SendMessageW(handle, WM_PAINT, 0, 0);
    }
    for (const HWND child : children) {
        UpdateWindow(child);
    }
    return TRUE;
}
