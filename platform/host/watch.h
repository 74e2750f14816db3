// What a viewer of a record can do, and what the host shows him of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host {

enum class WatchCommand : std::uint16_t
{
    Toggle,          ///< stop, or go on
    Tick,            ///< 25 ms on, and stop
    Faster,          ///< the next higher speed
    Slower,          ///< the next lower
    Back,            ///< 5 seconds
    Forward,         ///< 5 seconds
    PreviousChapter, ///< the start of a game, or its end
    NextChapter,
    Start,
    Seek,     ///< to the moment `Event::x`, in milliseconds from the start
    TakeOver, ///< the viewer plays on
    Help,     ///< shows these keys
    End,
};

/// Where a viewer is in a record.
struct Progress
{
    std::uint32_t position = 0; ///< milliseconds from the start
    std::uint32_t length = 0;   ///< milliseconds
    int quarterSpeed = 4;       ///< quarters of the ordinary speed: 1 to 64
    bool playing = true;
    std::string chapter; ///< UTF-8, perhaps empty

    friend bool operator==(const Progress &, const Progress &) = default;
};

/// "0:41 / 6:12, x 2, Marathon level 3", in UTF-8.
std::string describe(const Progress &progress);
/// The keys that `watchCommand` knows and what they do, a line each.
extern const char *const watchKeys;

/// What a key does, by its name (key_table.h); none for one that does nothing.
std::optional<WatchCommand> watchCommand(std::string_view key);
/// The same for a button of a controller, numbered as the standard gamepad of browsers.
std::optional<WatchCommand> watchCommand(int button);

} // namespace host
