// The state of the keys, for messages and for polling. A press is remembered until it is asked
// for, so that a tap between two polls is not lost.
#include "user/keys.h"

#include <bitset>
#include <cstddef>

#include "controls/dialog.h"
#include "shell/drop_down.h"
#include "user/focus.h"

namespace user {

namespace {

constexpr std::size_t keyCount = 256;

struct Keys
{
    std::bitset<keyCount> down;
    std::bitset<keyCount> pressed; ///< since the last query
    bool control = false;
    bool shift = false;
    bool buttonsHeld = false;
};

Keys keys;

constexpr std::size_t firstButton = VK_APP1;
constexpr std::size_t lastButton = VK_APP1 + 5;

bool isApplicationButton(std::size_t key) { return key >= firstButton && key <= lastButton; }

bool isKey(int key) { return key > 0 && static_cast<std::size_t>(key) < keyCount; }

/// Whether the user has something before him that can be cancelled: a menu, or a dialog that does
/// not ask for every key.
bool canCancel()
{
    const HWND target = keyWindow();
    const bool inDialog = dialogs::dataOf(target) || dialogs::dataOf(dialogs::dialogOf(target));
    return shell::menuIsOpen() ||
           (inDialog && (SendMessageW(target, WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS) == 0);
}

} // namespace

std::optional<MSG> handleKey(const host::Event &event)
{
    constexpr LPARAM pressedOnce = 1;
    constexpr LPARAM wasDown = 1 << 30;
    constexpr LPARAM released = LPARAM{1} << 31;
    const std::size_t key = event.key;
    const bool press = event.kind == host::Event::Kind::KeyDown;
    if (!isKey(event.key) || !inForeground()) {
        return std::nullopt;
    }
    if (press && event.escape && canCancel()) {
        return MSG{keyWindow(), WM_KEYDOWN, VK_ESCAPE, pressedOnce, 0, {}};
    }
    if (isApplicationButton(key) && !keys.buttonsHeld) {
        return std::nullopt;
    }
    const bool repeated = keys.down[key];
    if (!press && !repeated) {
        return std::nullopt;
    }
    keys.down[key] = press;
    if (press && !repeated) {
        keys.pressed[key] = true;
    }
    const HWND target = keyWindow();
    if (!target) {
        return std::nullopt;
    }
    const LPARAM change = press ? (repeated ? wasDown : 0) : wasDown | released;
    return MSG{target, press ? WM_KEYDOWN : WM_KEYUP, key, pressedOnce | change, 0, {}};
}

void releaseAllKeys()
{
    keys.down.reset();
    keys.pressed.reset();
}

void noteModifiers(const host::Event &event)
{
    keys.control = event.control;
    keys.shift = event.shift;
}

bool controlDown() { return keys.control || keys.down[VK_CONTROL]; }

bool shiftDown() { return keys.shift || keys.down[VK_SHIFT]; }

void holdButtons(bool held)
{
    keys.buttonsHeld = held;
    for (std::size_t key = firstButton; key <= lastButton && !held; ++key) {
        keys.down[key] = false;
        keys.pressed[key] = false;
    }
}

void forgetKeys() { keys = {}; }

} // namespace user

SHORT GetAsyncKeyState(int key)
{
    if (!user::isKey(key)) {
        return 0;
    }
    constexpr unsigned downNow = 0x8000;
    const auto index = static_cast<std::size_t>(key);
    const bool pressed = user::keys.pressed[index];
    user::keys.pressed[index] = false;
    return static_cast<SHORT>((user::keys.down[index] ? downNow : 0) | (pressed ? 1U : 0U));
}

SHORT GetKeyState(int key)
{
    constexpr int downNow = -0x8000;
    const bool down = key == VK_CONTROL ? user::controlDown()
                      : key == VK_SHIFT
                          ? user::shiftDown()
                          : user::isKey(key) && user::keys.down[static_cast<std::size_t>(key)];
    return static_cast<SHORT>(down ? downNow : 0);
}
