// Turns events of the host into messages.
#include "user/input.h"

#include "user/display.h"
#include "user/focus.h"
#include "user/keys.h"
#include "user/program_window.h"
#include "user/shell_interface.h"
#include "user/stylus.h"
#include "user/table.h"

namespace user {

namespace {

std::optional<MSG> messageTo(HWND window, UINT message, WPARAM wParam)
{
    return find(window) ? std::optional(MSG{window, message, wParam, 0, 0, {}}) : std::nullopt;
}

/// The window that gets what concerns the program as a whole: its main window, else the active one.
HWND mainWindow() { return programWindow() ? programWindow() : GetActiveWindow(); }

std::optional<MSG> handleClose()
{
    if (!find(mainWindow())) {
        PostQuitMessage(0);
        return std::nullopt;
    }
    return messageTo(mainWindow(), WM_CLOSE, 0);
}

/// Returns nothing for a key that is not for the program.
std::optional<MSG> handleKey(const host::Event &event)
{
    constexpr LPARAM pressedOnce = 1;
    constexpr LPARAM wasDown = 1 << 30;
    constexpr LPARAM released = LPARAM{1} << 31;
    const bool press = event.kind == host::Event::Kind::KeyDown;
    if (!inForeground()) {
        return std::nullopt;
    }
    if (press && event.escape && theShell->escapeCancels(keyWindow())) {
        return MSG{keyWindow(), WM_KEYDOWN, VK_ESCAPE, pressedOnce, 0, {}};
    }
    const KeyChange change = noteKey(event.key, press);
    const HWND target = keyWindow();
    if (!change.counts || !target) {
        return std::nullopt;
    }
    const LPARAM details = press ? (change.repeated ? wasDown : 0) : wasDown | released;
    return MSG{target, press ? WM_KEYDOWN : WM_KEYUP, event.key, pressedOnce | details, 0, {}};
}

/// Deactivation first, then the new size; `restore` does the opposite.
void minimize()
{
    leaveForeground();
    SendMessageW(programWindow(), WM_SIZE, SIZE_MINIMIZED, 0);
}

void restore()
{
    RECT client{};
    GetClientRect(programWindow(), &client);
    SendMessageW(programWindow(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
    comeToForeground();
}

} // namespace

std::optional<MSG> handleEvent(const host::Event &event)
{
    using Kind = host::Event::Kind;
    noteModifiers(event.control, event.shift);
    switch (event.kind) {
    case Kind::KeyDown:
    case Kind::KeyUp:
        return handleKey(event);
    case Kind::Text:
        return messageTo(keyWindow(), WM_CHAR, event.text);
    case Kind::StylusDown:
    case Kind::StylusMove:
    case Kind::StylusUp:
        return handleStylus(event);
    case Kind::Background:
        leaveForeground();
        return std::nullopt;
    case Kind::Foreground:
        comeToForeground();
        return std::nullopt;
    case Kind::Minimize:
        minimize();
        return std::nullopt;
    case Kind::Restore:
        restore();
        return std::nullopt;
    case Kind::Close:
        return handleClose();
    case Kind::Help:
        return messageTo(keyWindow() ? keyWindow() : mainWindow(), WM_HELP, 0);
    case Kind::Hibernate:
        return messageTo(mainWindow(), WM_HIBERNATE, 0);
    case Kind::Turn:
        turnDisplay(event.orientation);
        return std::nullopt;
    case Kind::Watch: // never gets here
        break;
    }
    return std::nullopt;
}

} // namespace user
