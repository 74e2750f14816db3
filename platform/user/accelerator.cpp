// Accelerator tables: keys that stand for commands.
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>

#include "resources/image.h"
#include "user/keys.h"
#include "user/table.h"

namespace user {

namespace {

/// An entry as the resource has it.
struct Accelerator
{
    WORD flags;
    WORD key;
    WORD command;
    WORD padding;
};
static_assert(sizeof(Accelerator) == 8);

constexpr unsigned virtualKey = 0x01;
constexpr unsigned withShift = 0x04;
constexpr unsigned withControl = 0x08;
constexpr unsigned withAlt = 0x10;

bool matches(const Accelerator &accelerator, const MSG &message)
{
    if (accelerator.key != message.wParam) {
        return false;
    }
    if ((accelerator.flags & virtualKey) == 0) {
        return message.message == WM_CHAR;
    }
    return message.message == WM_KEYDOWN && (accelerator.flags & withAlt) == 0 &&
           ((accelerator.flags & withControl) != 0) == controlDown() &&
           ((accelerator.flags & withShift) != 0) == shiftDown();
}

std::optional<WORD> commandOf(std::span<const std::byte> table, const MSG &message)
{
    for (; table.size() >= sizeof(Accelerator); table = table.subspan(sizeof(Accelerator))) {
        Accelerator accelerator;
        std::memcpy(&accelerator, table.data(), sizeof accelerator);
        if (matches(accelerator, message)) {
            return accelerator.command;
        }
    }
    return std::nullopt;
}

} // namespace

} // namespace user

HACCEL LoadAcceleratorsW(HINSTANCE, LPCWSTR name)
{
    return {resources::locate(resources::Name::from(RT_ACCELERATOR), resources::Name::from(name))};
}

int TranslateAcceleratorW(HWND window, HACCEL table, MSG *message)
{
    const user::Window *record = user::find(window);
    if (!record || !record->enabled() || !message ||
        (message->message != WM_KEYDOWN && message->message != WM_CHAR))
    {
        return 0;
    }
    const auto command = user::commandOf(resources::at(table.value), *message);
    if (!command) {
        return 0;
    }
    constexpr unsigned fromAccelerator = 1;
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(*command, fromAccelerator), 0);
    return 1;
}
