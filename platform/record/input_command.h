// The commands of scripts that are the user's own doing, and all that a record may hold: what
// happened outside of the program, as a line of text and back.
#pragma once

#include <string>
#include <string_view>

#include "host/host.h"
#include "record/script.h"

namespace record {

struct InputCommand
{
    std::string_view name;
    ArgumentList arguments;
    host::Event::Kind kind; ///< of "key" and "stylus" the one for "down"

    host::Event event(const Arguments &details) const;
};

/// Null when there is none of that name.
const InputCommand *findInputCommand(std::string_view name);

/// The line, without its end, with which that happens again.
std::string lineFor(const host::Event &event);

} // namespace record
