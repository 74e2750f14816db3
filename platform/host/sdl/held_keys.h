// Which of the handheld's buttons are down, when several keys of the desktop stand for one.
#pragma once

#include <cstdint>
#include <vector>

namespace desktop {

class HeldKeys
{
public:
    /// `source`, a key of the keyboard or of a controller, goes down and stands for the button
    /// `key`. Returns whether the button goes down with it.
    bool press(int source, std::uint16_t key);
    /// `source` goes up. Returns the button that goes up with it, or 0.
    std::uint16_t release(int source);
    /// Everything goes up. Returns the buttons that were down.
    std::vector<std::uint16_t> releaseAll();

private:
    struct Held
    {
        int source;
        std::uint16_t key;
    };
    bool isDown(std::uint16_t key) const;

    std::vector<Held> held_;
};

} // namespace desktop
