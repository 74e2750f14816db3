// A loudspeaker that nobody hears, on a clock that jumps: it knows only until when it plays.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "host/moment.h"

namespace host {

class SilentSpeaker
{
public:
    /// Queues so many samples, 22,050 a second, behind those that still play at `now`. Returns the
    /// moment when they begin.
    std::uint32_t play(std::size_t samples, std::uint32_t now)
    {
        constexpr std::uint64_t samplesPerSecond = 22050;
        const std::uint32_t start = isPlaying(now) ? *end_ : now;
        end_ =
            start + static_cast<std::uint32_t>(
                        (samples * std::uint64_t{1000} + samplesPerSecond - 1) / samplesPerSecond);
        return start;
    }
    void drop() { end_.reset(); }
    bool isPlaying(std::uint32_t now) const { return end_ && isBefore(now, *end_); }

private:
    std::optional<std::uint32_t> end_;
};

} // namespace host
