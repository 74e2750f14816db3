// Runs a program on the virtual handheld by a script.
#pragma once

#include <cstdint>
#include <filesystem>

#include "handheld.h"
#include "pilot/subject.h"

namespace pilot {

struct Options
{
    std::optional<std::filesystem::path> store;  ///< none: a temporary folder
    std::optional<std::uint32_t> clock;          ///< the tick count at start
    bool landscape = false;                      ///< the display starts turned
    std::optional<std::filesystem::path> record; ///< where to record what is played
    std::string script = "-";                    ///< a file, or standard input
    std::string version;                         ///< of the program, for the record
};

/// Runs the script to its end. What the options leave open a recorded script says itself: the
/// clock (else 1000), the display (else upright), and the store. A
/// record ends where the program ends or restarts. Returns the exit status: 0, 1 for a file
/// that cannot be read or written, 2 for a mistake in the script, 3 when the program crashed or a
/// check found a fault.
int run(const Options &options, const handheld::Program &program, const Subject &subject);

} // namespace pilot
