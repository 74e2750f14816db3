// The eight game actions, the hardware keys assigned to them, and the polling of those keys.
// The record is stored byte for byte with the settings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

enum class Action
{
    Left,
    Right,
    HardDrop,
    SoftDrop,
    Pause,
    Hold,
    RotateLeft,
    RotateRight
};

constexpr std::size_t actionCount = 8;

/// A virtual-key code for each action, 0 for none.
using KeyMap = std::array<std::uint32_t, actionCount>;

struct ButtonSlot
{
    std::uint32_t keyCode; ///< virtual-key code, 0 for none
    std::uint8_t down;     ///< 1 when the key counted as down at the last poll
    std::uint8_t wasDown;  ///< the same at the poll before
    std::array<std::uint8_t, 2> padding;
};

struct InputState
{
    std::array<ButtonSlot, actionCount> slots; ///< indexed by Action

    /// The default keys, every button up.
    InputState() : slots{} { setDefaults(); }

    /// Assigns the default keys; the polled states stay.
    void setDefaults();
    /// Reads the eight keys. A press that began and ended since the last poll counts as down.
    void poll();
    /// Down at the last poll.
    bool held(Action action) const { return slots[static_cast<std::size_t>(action)].down != 0; }
    /// Down at the last poll and not at the one before.
    bool pressed(Action action) const;

    /// Makes the hardware buttons report to the game instead of starting their usual programs,
    /// until `closeInput`.
    void openInput();
    void closeInput();
};

static_assert(sizeof(ButtonSlot) == 8);
static_assert(sizeof(InputState) == 64);
