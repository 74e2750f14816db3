// Queued audio. Samples start, and stop when they are dropped, within the time of one device
// buffer, 12 ms.
#include "host/sdl/loudspeaker.h"

#include "host/moment.h"

namespace desktop {
namespace {

constexpr int samplesPerSecond = 22050;
constexpr std::uint32_t restAfter = 20000; ///< milliseconds of silence

SDL_AudioDeviceID openDevice()
{
    SDL_AudioSpec wanted{};
    wanted.freq = samplesPerSecond;
    wanted.format = AUDIO_U8;
    wanted.channels = 1;
    wanted.samples = 256;
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device != 0) {
        SDL_PauseAudioDevice(device, 0);
    } else {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
    return device;
}

/// Starts SDL's audio; false when the machine has no device. Opening one in vain would make the
/// sound system complain on the terminal.
bool startAudio()
{
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        return false;
    }
    if (SDL_GetNumAudioDevices(0) == 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return false;
    }
    return true;
}

} // namespace

bool Loudspeaker::open()
{
    wanted_ = exists();
    return wanted_;
}

void Loudspeaker::close()
{
    wanted_ = false;
    rest();
}

void Loudspeaker::wake()
{
    if (device_ == 0 && !missing_) {
        missing_ = !startAudio();
        device_ = missing_ ? 0 : openDevice();
    }
}

void Loudspeaker::rest()
{
    if (device_ != 0) {
        SDL_CloseAudioDevice(device_);
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        device_ = 0;
    }
}

void Loudspeaker::play(std::span<const std::uint8_t> samples, std::uint32_t now)
{
    if (!wanted_) {
        return;
    }
    wake();
    SDL_QueueAudio(device_, samples.data(), static_cast<Uint32>(samples.size()));
    restAt_ = now + restAfter;
}

void Loudspeaker::drop()
{
    if (device_ != 0) {
        SDL_ClearQueuedAudio(device_);
    }
}

bool Loudspeaker::queued() const { return device_ != 0 && SDL_GetQueuedAudioSize(device_) > 0; }

std::optional<int> Loudspeaker::tendInterval(std::uint32_t now) const
{
    return device_ != 0 ? std::optional(host::remaining(now, restAt_)) : std::nullopt;
}

void Loudspeaker::tend(std::uint32_t now)
{
    if (tendInterval(now) == 0) {
        rest();
    }
}

} // namespace desktop
