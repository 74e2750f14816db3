// Moments: tick counts of a clock that wraps after 2^32 milliseconds. Two of them are compared by
// their signed distance, so they must be less than 2^31 ms, some 24 days, apart.
#pragma once

#include <algorithm>
#include <cstdint>

namespace host {

/// Milliseconds from one moment to another; negative when that is earlier.
constexpr std::int32_t distance(std::uint32_t from, std::uint32_t to)
{
    return static_cast<std::int32_t>(to - from);
}

constexpr bool isBefore(std::uint32_t a, std::uint32_t b) { return distance(b, a) < 0; }

/// Milliseconds from now until a moment; 0 when it has passed.
constexpr std::int32_t remaining(std::uint32_t now, std::uint32_t moment)
{
    return std::max(0, distance(now, moment));
}

} // namespace host
