// The eight buttons: their default keys, and the poll.
#include "input/input_state.h"

#include <windows.h>

#include <gx.h>

namespace {

constexpr KeyMap defaultKeys{VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_APP1, VK_APP2, VK_APP3, VK_APP4};

} // namespace

void InputState::setDefaults()
{
    for (std::size_t i = 0; i < actionCount; ++i) {
        slots[i].keyCode = defaultKeys[i];
    }
}

void InputState::poll()
{
    for (ButtonSlot &slot : slots) {
        slot.wasDown = slot.down;
        // Any bit of the answer counts, so that a press between two polls is not lost.
        slot.down = GetAsyncKeyState(static_cast<int>(slot.keyCode)) != 0 ? 1 : 0;
    }
}

bool InputState::pressed(Action action) const
{
    const ButtonSlot &slot = slots[static_cast<std::size_t>(action)];
    return slot.down != 0 && slot.wasDown == 0;
}

void InputState::openInput() { GXOpenInput(); }

void InputState::closeInput() { GXCloseInput(); }
