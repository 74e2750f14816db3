// Scripts as text: lines, words, and the arguments of commands.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pilot {

/// Reads a line from a file descriptor, without its end, and not a byte further: whoever inherits
/// the descriptor goes on with the next line. None at the end of the file; false in `readable`
/// when reading failed.
std::optional<std::string> readLine(int descriptor, bool &readable);

/// What a command takes.
enum class Argument
{
    None,
    Milliseconds,         ///< 0 to 2147483647
    OptionalMilliseconds, ///< 25 when left out
    KeyCode,              ///< 1 to 254
    UpOrDown,             ///< in `text`
    StylusAction,         ///< in `text`: down, move or up
    OptionalModifiers,    ///< ctrl 1, shift 2, esc 4, or a sum; 0 when left out
    CodeUnit,             ///< of UTF-16
    Pixel,                ///< 0 to 319
    Id,                   ///< of a command or a control
    Index,                ///< 0 and up
    Orientation,          ///< 0, 1, 2 or 4
    File,                 ///< in `text`: the rest of the line up to a comment
    Text,                 ///< in `text`: the rest of the line, comments and all
};

/// A command takes at most three.
using ArgumentList = std::array<Argument, 3>;

struct Arguments
{
    std::array<long, 3> numbers{}; ///< by position
    std::string text;
};

/// What a script says in its first lines about the world it was written in: "# clock MS" and
/// "# landscape". `start` is how the script begins.
struct Beginning
{
    std::optional<std::uint32_t> clock;
    bool landscape = false;
};
Beginning readBeginning(std::string_view start);

/// Takes the first word off a line; empty when there is none or a comment begins.
std::string_view takeWord(std::string_view &rest);
/// Reads what stands behind a command's name. Returns what is wrong, or an empty text.
std::string readArguments(std::string_view rest, const ArgumentList &kinds, Arguments &result);

} // namespace pilot
