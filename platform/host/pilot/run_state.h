// State that survives a restart of the program: clock, held keys, notes.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace pilot {

/// A sound that was played.
struct Sound
{
    std::uint32_t start = 0;   ///< the tick count when it began
    std::uint32_t samples = 0; ///< its whole length
    bool cut = false;          ///< another sound cut it off
};

/// A film that is being made.
struct FilmState
{
    std::string file; ///< empty: there is none
    int framesPerSecond = 0;
    int width = 0; ///< pixels
    int height = 0;
    std::uint64_t elapsed = 0; ///< milliseconds that it has
};

struct RunState
{
    std::uint32_t clock = 1000;   ///< milliseconds, modulo 2^32
    int orientation = 0;          ///< of the display: 0, 1, 2 or 4
    int line = 0;                 ///< number of the line of the script that was read last
    std::set<std::uint16_t> held; ///< keys that are down
    std::string traceFile;        ///< empty: nothing is traced
    std::set<std::string> traced; ///< trace files begun in this run, to which it appends
    bool checks = false;          ///< the game object is checked after every timer message
    FilmState film;
    std::vector<Sound> sounds; ///< since the script last asked for them
};

/// The state as text and back, for the way from one process to the next.
std::string pack(const RunState &state);
RunState unpack(const std::string &text);

} // namespace pilot
