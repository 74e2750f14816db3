// Queued audio. What is queued plays within the time of one device buffer, 12 ms, and what is
// dropped is silent as soon.
#include "host/sdl/loudspeaker.h"

#include <algorithm>

#include "host/program_clock.h"

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
    }
    return device;
}

} // namespace

/// Only a machine that has a device is asked to open one: trying in vain is not silent, for the
/// sound system itself complains on the terminal.
bool Loudspeaker::exists()
{
    if (SDL_WasInit(SDL_INIT_AUDIO) == 0 && SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        return false;
    }
    if (SDL_GetNumAudioDevices(0) == 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return false;
    }
    return true;
}

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
    if (device_ == 0 && exists()) {
        device_ = openDevice();
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
    if (device_ == 0) {
        return std::nullopt;
    }
    return host::isBefore(now, restAt_) ? static_cast<int>(restAt_ - now) : 0;
}

void Loudspeaker::tend(std::uint32_t now)
{
    if (device_ != 0 && !host::isBefore(now, restAt_)) {
        rest();
    }
}

} // namespace desktop
