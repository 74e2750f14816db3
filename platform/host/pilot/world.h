// What goes on when the program on the virtual handheld is started anew: the time, the hands of
// the user, and what was noted down.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace pilot {

/// An effect that was played.
struct Sound
{
    std::uint32_t start = 0;   ///< the tick count when it began
    std::uint32_t samples = 0; ///< its whole length
    bool cut = false;          ///< another effect cut it off
};

struct World
{
    std::uint32_t clock = 1000;   ///< milliseconds, modulo 2^32
    int orientation = 0;          ///< of the display: 0, 1, 2 or 4
    int line = 0;                 ///< of the script: the one carried out last
    std::set<std::uint16_t> held; ///< buttons that are down
    std::string traceFile;        ///< empty: nothing is traced
    std::set<std::string> traced; ///< trace files begun in this run: they are continued
    bool checks = false;          ///< the game object is looked over after every timer
    std::vector<Sound> sounds;    ///< since they were last asked for
};

/// A world as text and back, for the way from one process to the next.
std::string pack(const World &world);
World unpack(const std::string &text);

} // namespace pilot
