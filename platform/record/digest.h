// A number that two runs share only when the bytes it was made from are the same: FNV-1a with 64
// bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace record {

class Digest
{
public:
    void add(std::span<const std::byte> bytes)
    {
        for (const std::byte each : bytes) {
            value_ = (value_ ^ std::to_integer<std::uint64_t>(each)) * 0x100000001B3U;
        }
    }
    std::uint64_t value() const { return value_; }

private:
    std::uint64_t value_ = 0xCBF29CE484222325U;
};

} // namespace record
