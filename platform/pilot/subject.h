// What the pilot knows of the program.
#pragma once

#include <vector>

#include "record/record.h"

namespace pilot {

/// The image is also what the commands `state` and `trace` write, and `check` looks at.
struct Subject : record::Subject
{
    std::function<std::optional<std::string>()> findFault; ///< what is wrong in it; none: nothing
    /// A line for each game that was played, in UTF-8.
    std::function<std::vector<std::string>()> account;
};

} // namespace pilot
