// What a record knows of the program.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace record {

struct Subject
{
    /// The object whose bytes the digests are made from.
    std::span<const std::byte> image;
    /// The chapter that has begun since the last call, on one line, such as "game Marathon level
    /// 3"; none: still the same.
    std::function<std::optional<std::string>()> newChapter;
};

} // namespace record
