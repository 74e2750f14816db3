// What the pilot knows of the program.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace pilot {

/// The object that the commands `state` and `trace` write and `check` looks at.
struct Subject
{
    std::span<const std::byte> image;
    std::function<std::optional<std::string>()> findFault; ///< what is wrong in it; none: nothing
};

} // namespace pilot
