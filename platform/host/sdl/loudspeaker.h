// The loudspeaker: samples queued at SDL's audio device.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "host/sdl/sdl.h"

namespace desktop {

/// Sound never holds anything up for more than a second: after that there is silence.
///
/// Audio keeps SDL's threads awake even when it is silent, so after a while without a sound it is
/// shut down, and started again for the next sound. It is not started before the first one, because
/// asking for devices takes milliseconds and megabytes.
class Loudspeaker
{
public:
    Loudspeaker() = default;
    Loudspeaker(const Loudspeaker &) = delete;
    Loudspeaker &operator=(const Loudspeaker &) = delete;
    ~Loudspeaker() { rest(); }

    /// Whether the machine has an audio device; true until the first sound has failed
    /// or the sound system hangs.
    bool exists() const { return !missing_; }
    /// `now` is the desktop's clock.
    void play(std::span<const std::uint8_t> samples, std::uint32_t now);
    void drop();
    bool queued() const { return device_ != 0 && SDL_GetQueuedAudioSize(device_) > 0; }

    /// How long the process may sleep before `tend` is due, in milliseconds; none: forever.
    std::optional<int> tendInterval(std::uint32_t now) const;
    /// Shuts audio down when it has been silent for long.
    void tend(std::uint32_t now);

private:
    void rest();

    bool missing_ = false;
    SDL_AudioDeviceID device_ = 0;
    std::uint32_t restAt_ = 0; ///< when the device may be closed
};

} // namespace desktop
