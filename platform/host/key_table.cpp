// The table of keys.
#include "host/key_table.h"

#include <algorithm>
#include <span>
#include <string>

namespace host {
namespace {

struct Entry
{
    std::string_view name;
    std::uint16_t code;
};

constexpr Entry keys[] = {
    {"ArrowLeft", padLeft}, {"ArrowUp", padUp},       {"ArrowRight", padRight},
    {"ArrowDown", padDown}, {"Enter", padCentre},     {"Escape", buttonA},
    {"p", buttonA},         {"c", buttonB},           {"ShiftLeft", buttonB},
    {"z", buttonC},         {"ControlLeft", buttonC}, {"x", buttonD},
    {" ", buttonD},         {"Backspace", 0x08},      {"Tab", 0x09},
    {"End", 0x23},          {"Home", 0x24},           {"Delete", 0x2E},
};

constexpr Entry buttons[] = {
    {"Left", padLeft}, {"Up", padUp},         {"Right", padRight},
    {"Down", padDown}, {"Centre", padCentre}, {"A", buttonA},
    {"B", buttonB},    {"C", buttonC},        {"D", buttonD},
};

std::uint16_t find(std::span<const Entry> table, std::string_view name)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [&](const Entry &each) { return each.name == name; });
    return found == table.end() ? std::uint16_t{0} : found->code;
}

/// The code of "F1" to "F12"; 0 for another name.
std::uint16_t functionKey(std::string_view key)
{
    constexpr int keyF1 = 0x70;
    for (int number = 1; number <= 12; ++number) {
        if (key == 'F' + std::to_string(number)) {
            return static_cast<std::uint16_t>(keyF1 + number - 1);
        }
    }
    return 0;
}

} // namespace

std::uint16_t virtualKey(std::string_view key)
{
    if (const std::uint16_t code = find(keys, key)) {
        return code;
    }
    if (key.size() != 1) {
        return functionKey(key);
    }
    const char c = key.front();
    if (c >= 'a' && c <= 'z') {
        return static_cast<std::uint16_t>(c - 'a' + 'A');
    }
    return c >= '0' && c <= '9' ? static_cast<std::uint16_t>(c) : std::uint16_t{0};
}

std::uint16_t buttonCode(std::string_view name) { return find(buttons, name); }

std::string_view buttonName(std::uint16_t code)
{
    const auto found = std::find_if(std::begin(buttons), std::end(buttons),
                                    [&](const Entry &each) { return each.code == code; });
    return found == std::end(buttons) ? std::string_view{} : found->name;
}

bool isPointerKey(std::string_view key) { return key == "ControlRight" || key == "ContextMenu"; }

bool types(std::string_view key)
{
    // One character, whatever its length in UTF-8: other names have more letters.
    const auto characters = std::count_if(std::begin(key), std::end(key), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    });
    return characters == 1 || key == "ShiftLeft" || key == "ShiftRight";
}

} // namespace host
