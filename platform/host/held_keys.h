// Which of the handheld's buttons are down, when several keys stand for one.
#pragma once

#include <cstdint>
#include <vector>

namespace host {

/// A key of the keyboard, a button of a controller, a finger: whatever can hold a button down.
struct Source
{
    enum class Device
    {
        Keyboard,
        Controller,
        Finger
    };
    Device device;
    int number; ///< of the key or finger; controllers share theirs out among themselves
    friend bool operator==(const Source &, const Source &) = default;
};

class HeldKeys
{
public:
    /// `source` goes down and stands for the button `key`. Returns whether the button goes down
    /// with it.
    bool press(Source source, std::uint16_t key);
    /// `source` goes up. Returns the button that goes up with it, or 0.
    std::uint16_t release(Source source);
    /// Everything goes up. Returns the buttons that were down.
    std::vector<std::uint16_t> releaseAll();
    bool isHeld(Source source) const;

private:
    struct Held
    {
        Source source;
        std::uint16_t key;
    };
    bool isDown(std::uint16_t key) const;

    std::vector<Held> held_;
};

} // namespace host
