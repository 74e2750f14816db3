// Turning the display: the screen takes its other size, and the windows follow.
#include "user/display.h"

#include <algorithm>

#include "gdi/rect.h"
#include "gdi/screen.h"
#include "user/order.h"
#include "user/paint.h"
#include "user/shell_interface.h"
#include "user/table.h"

namespace user {

namespace {

DWORD current = DMDO_0;

bool isOrientation(DWORD value)
{
    return value == DMDO_0 || value == DMDO_90 || value == DMDO_180 || value == DMDO_270;
}

SIZE sizeIn(DWORD orientation)
{
    constexpr LONG shortSide = 240;
    constexpr LONG longSide = 320;
    const bool upright = orientation == DMDO_0 || orientation == DMDO_180;
    return upright ? SIZE{shortSide, longSide} : SIZE{longSide, shortSide};
}

/// The place of a window after the turn. One that filled the work area does so again; any other is
/// moved only as far as it would stick out of the screen.
RECT placeOnScreen(const RECT &rect, const RECT &oldDefault)
{
    const RECT place = theShell->workArea();
    if (rect == oldDefault) {
        return place;
    }
    RECT moved = rect;
    OffsetRect(&moved, std::min(place.right - rect.right, 0),
               std::min(place.bottom - rect.bottom, 0));
    OffsetRect(&moved, std::max(place.left - moved.left, 0), std::max(place.top - moved.top, 0));
    return moved;
}

void placeWindows(const RECT &oldDefault)
{
    for (const HWND handle : handlesOf(topLevelWindows())) {
        const Window *window = find(handle);
        if (window && window->activatable()) {
            const RECT rect = placeOnScreen(window->rect, oldDefault);
            MoveWindow(handle, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                       TRUE);
        }
    }
}

} // namespace

void setOrientation(int orientation)
{
    const auto wanted = static_cast<DWORD>(orientation);
    current = isOrientation(wanted) ? wanted : DMDO_0;
    const SIZE size = sizeIn(current);
    gdi::resizeScreen(size.cx, size.cy);
}

void turnDisplay(int orientation)
{
    const auto wanted = static_cast<DWORD>(orientation);
    if (wanted == current || !isOrientation(wanted)) {
        return;
    }
    const RECT oldDefault = theShell->workArea();
    setOrientation(orientation);
    arrangementChanged();
    theShell->displayTurned();
    placeWindows(oldDefault);
    for (const HWND window : handlesOf(topLevelWindows())) {
        SendMessageW(window, WM_SETTINGCHANGE, 0, 0);
    }
    for (Window *window : topLevelWindows()) {
        invalidateAll(*window);
    }
}

LONG changeDisplaySettings(LPCWSTR, DEVMODEW *mode, HWND, DWORD flags, void *)
{
    if (!mode || (mode->dmFields & DM_DISPLAYORIENTATION) == 0) {
        return DISP_CHANGE_BADMODE;
    }
    if ((flags & CDS_TEST) != 0) {
        mode->dmDisplayOrientation = current;
        return DISP_CHANGE_SUCCESSFUL;
    }
    if (!isOrientation(mode->dmDisplayOrientation)) {
        return DISP_CHANGE_BADMODE;
    }
    turnDisplay(static_cast<int>(mode->dmDisplayOrientation));
    return DISP_CHANGE_SUCCESSFUL;
}

} // namespace user
