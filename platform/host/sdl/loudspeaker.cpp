// Queued audio. Samples start, and stop when they are dropped, within the time of one device
// buffer, 12 ms.
#include "host/sdl/loudspeaker.h"

#include <chrono>
#include <future>
#include <system_error>
#include <thread>

#include "host/moment.h"

namespace desktop {
namespace {

constexpr int samplesPerSecond = 22050;
constexpr std::uint32_t restAfter = 20000; ///< milliseconds of silence

/// Starts SDL's audio; none when the machine has no device. Opening one in vain would make the
/// sound system complain on the terminal.
std::optional<SDL_AudioDeviceID> openDevice()
{
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        return std::nullopt;
    }
    if (SDL_GetNumAudioDevices(0) == 0) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return std::nullopt;
    }
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

/// A sound system that hangs must hold nothing up, so SDL's calls that wait for it run in a thread.
/// When one does not return within a second there is no result, and the call is left to itself.
template <class Call>
std::optional<std::invoke_result_t<Call>> withinASecond(Call call)
{
    std::packaged_task<std::invoke_result_t<Call>()> task(std::move(call));
    auto result = task.get_future();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error &) {
        return std::nullopt;
    }
    return result.wait_for(std::chrono::seconds(1)) == std::future_status::ready
               ? std::optional(result.get())
               : std::nullopt;
}

} // namespace

void Loudspeaker::rest()
{
    if (device_ != 0) {
        missing_ = !withinASecond([device = device_] {
            SDL_CloseAudioDevice(device);
            SDL_QuitSubSystem(SDL_INIT_AUDIO);
            return true;
        });
        device_ = 0;
    }
}

void Loudspeaker::play(std::span<const std::uint8_t> samples, std::uint32_t now)
{
    if (device_ == 0 && !missing_) {
        const auto device = withinASecond(openDevice).value_or(std::nullopt);
        missing_ = !device;
        device_ = device.value_or(0);
    }
    SDL_QueueAudio(device_, samples.data(), static_cast<Uint32>(samples.size()));
    restAt_ = now + restAfter;
}

void Loudspeaker::drop()
{
    if (device_ != 0) {
        SDL_ClearQueuedAudio(device_);
    }
}

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
