// Lines of scripts: words, and the arguments of commands.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/problem.h"

namespace record {

/// What a command takes.
enum class Argument
{
    None,
    Milliseconds,         ///< 0 to 2147483647
    OptionalMilliseconds, ///< 25 when left out
    KeyCode,              ///< 1 to 254
    CodeUnit,             ///< of UTF-16, 1 to 65535
    Pixel,                ///< 0 to 319
    Id,                   ///< of a command or a control
    Index,                ///< 0 and up
    Orientation,          ///< 0, 1, 2 or 4
    UpOrDown,             ///< in `text`
    StylusAction,         ///< in `text`: down, move or up
    OptionalModifiers,    ///< ctrl 1, shift 2, esc 4, or a sum; 0 when left out
    OptionalRate,         ///< frames a second, 1 to 60; 40 when left out
    Word,                 ///< in `text`
    File,                 ///< in `text`: the rest of the line up to a comment
    Text,                 ///< in `text`: the rest of the line, comments and all
};

/// A command takes at most three.
using ArgumentList = std::array<Argument, 3>;

struct Arguments
{
    std::array<int, 3> numbers{}; ///< by position
    std::string text;
};

/// Takes the first word off a line; empty when there is none or a comment begins.
std::string_view takeWord(std::string_view &rest);
/// Reads what follows a command's name.
host::Result<Arguments> readArguments(std::string_view rest, const ArgumentList &kinds);

} // namespace record
