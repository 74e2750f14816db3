// A button is down while at least one of its keys is.
#include "host/sdl/held_keys.h"

#include <algorithm>

namespace desktop {

bool HeldKeys::isDown(std::uint16_t key) const
{
    return std::any_of(held_.begin(), held_.end(), [key](const Held &h) { return h.key == key; });
}

bool HeldKeys::press(int source, std::uint16_t key)
{
    if (std::any_of(held_.begin(), held_.end(),
                    [source](const Held &h) { return h.source == source; })) {
        return false;
    }
    const bool goesDown = !isDown(key);
    held_.push_back({source, key});
    return goesDown;
}

std::uint16_t HeldKeys::release(int source)
{
    const auto found = std::find_if(held_.begin(), held_.end(),
                                    [source](const Held &h) { return h.source == source; });
    if (found == held_.end()) {
        return 0;
    }
    const std::uint16_t key = found->key;
    held_.erase(found);
    return isDown(key) ? std::uint16_t{0} : key;
}

std::vector<std::uint16_t> HeldKeys::releaseAll()
{
    std::vector<std::uint16_t> keys;
    while (!held_.empty()) {
        if (const std::uint16_t key = release(held_.back().source)) {
            keys.push_back(key);
        }
    }
    return keys;
}

} // namespace desktop
