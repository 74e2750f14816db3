// Accelerator tables: keys that stand for commands.
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <vector>

#include "resources/image.h"
#include "user/accelerator.h"
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

/// The tables that were loaded; handle 1 is the first of them.
std::vector<std::span<const std::byte>> tables;

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

void forgetAccelerators() { tables.clear(); }

} // namespace user

HACCEL LoadAcceleratorsW(HINSTANCE, LPCWSTR name)
{
    const auto table = resources::find(RT_ACCELERATOR, name);
    if (table.empty()) {
        return {};
    }
    user::tables.push_back(table);
    return {static_cast<std::uint32_t>(user::tables.size())};
}

int TranslateAcceleratorW(HWND window, HACCEL table, MSG *message)
{
    const user::Window *record = user::find(window);
    if (!record || !record->enabled() || !message || table.value == 0 ||
        table.value > user::tables.size())
    {
        return 0;
    }
    const auto command = user::commandOf(user::tables[table.value - 1], *message);
    if (!command) {
        return 0;
    }
    constexpr unsigned fromAccelerator = 1;
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(*command, fromAccelerator), 0);
    return 1;
}
