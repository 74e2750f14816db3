// Which keys are down, and which were pressed since they were last polled.
#include "user/keys.h"

#include <bitset>
#include <cstddef>

#include "gx.h"
#include "winuser.h"

namespace user {

namespace {

constexpr std::size_t keyCount = 256;

struct Keys
{
    std::bitset<keyCount> down;
    std::bitset<keyCount> pressed; ///< since the last query
    bool control = false;
    bool shift = false;
    bool buttonsHeld = false; ///< the application buttons reach the program
};

Keys keys;

constexpr std::size_t firstButton = VK_APP1;
constexpr std::size_t lastButton = VK_APP1 + 5;

bool isApplicationButton(std::size_t key) { return key >= firstButton && key <= lastButton; }

bool isKey(int key) { return key > 0 && static_cast<std::size_t>(key) < keyCount; }

} // namespace

KeyChange noteKey(std::uint16_t key, bool down)
{
    if (!isKey(key) || (isApplicationButton(key) && !keys.buttonsHeld)) {
        return {};
    }
    const bool wasDown = keys.down[key];
    if (!down && !wasDown) {
        return {};
    }
    keys.down[key] = down;
    keys.pressed[key] = keys.pressed[key] || (down && !wasDown);
    return {true, wasDown};
}

void releaseAllKeys()
{
    keys.down.reset();
    keys.pressed.reset();
}

void noteModifiers(bool control, bool shift)
{
    keys.control = control;
    keys.shift = shift;
}

bool controlDown() { return keys.control || keys.down[VK_CONTROL]; }

bool shiftDown() { return keys.shift || keys.down[VK_SHIFT]; }

void forgetKeys() { keys = {}; }

} // namespace user

int GXOpenInput()
{
    user::keys.buttonsHeld = true;
    return 1;
}

int GXCloseInput()
{
    user::keys.buttonsHeld = false;
    for (std::size_t key = user::firstButton; key <= user::lastButton; ++key) {
        user::keys.down[key] = false;
        user::keys.pressed[key] = false;
    }
    return 1;
}

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
