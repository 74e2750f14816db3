// glimra-pilot's works: a program on the virtual handheld, played by a script.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "handheld.h"

namespace pilot {

struct Options
{
    std::optional<std::filesystem::path> store;  ///< none: a temporary folder
    std::optional<std::uint32_t> clock;          ///< the tick count at start
    bool landscape = false;                      ///< the display starts turned
    std::optional<std::filesystem::path> record; ///< where to record what is played
    std::string script = "-";                    ///< a file, or standard input
};

/// Runs the script to its end. What the options leave open a recorded script says itself: the
/// clock (else 1000), the display (else upright), and the store beside it, which is copied. A
/// record ends where the program does or is started anew. `image` is what its commands `state` and
/// `trace` write. Returns the exit status: 0, 1 for a file that cannot be read or written, 2 for a
/// mistake in the script, 3 when the program crashed.
int run(const Options &options, const handheld::Program &program, std::span<const std::byte> image);

} // namespace pilot
