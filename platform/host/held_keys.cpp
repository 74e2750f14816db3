// A button is down while at least one of its sources is.
#include "host/held_keys.h"

#include <algorithm>

namespace host {

bool HeldKeys::isDown(std::uint16_t key) const
{
    return std::find_if(std::begin(held_), std::end(held_),
                        [&](const Held &each) { return each.key == key; }) != held_.end();
}

bool HeldKeys::isHeld(Source source) const
{
    return std::any_of(std::begin(held_), std::end(held_),
                       [&](const Held &each) { return each.source == source; });
}

bool HeldKeys::press(Source source, std::uint16_t key)
{
    if (isHeld(source)) {
        return false;
    }
    const bool goesDown = !isDown(key);
    held_.push_back({source, key});
    return goesDown;
}

std::uint16_t HeldKeys::release(Source source)
{
    const auto found = std::find_if(std::begin(held_), std::end(held_),
                                    [&](const Held &each) { return each.source == source; });
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

} // namespace host
