// Both files are written without a buffer, so that a crash of the program leaves all frames up to
// it. The WAV file's sizes stand at its beginning, and get their values at the end.
#include "host/pilot/film.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

#include "host/pixel.h"

namespace pilot {
namespace {

constexpr std::string_view frameHeading = "FRAME\n";
constexpr std::uint64_t samplesPerSecond = 22050;
constexpr std::uint8_t silentSample = 128;
constexpr std::size_t wavHeading = 44; ///< bytes

struct Yuv
{
    std::uint8_t luma;
    std::uint8_t blue;
    std::uint8_t red;
};

/// What standard television makes of a colour: BT.601, 16 to 235, in 8 bits of fraction.
constexpr Yuv toYuv(host::Rgb colour)
{
    const auto [r, g, b] = colour;
    return {static_cast<std::uint8_t>(16 + ((66 * r + 129 * g + 25 * b + 128) >> 8)),
            static_cast<std::uint8_t>(128 + ((112 * b - 38 * r - 74 * g + 128) >> 8)),
            static_cast<std::uint8_t>(128 + ((112 * r - 94 * g - 18 * b + 128) >> 8))};
}

std::span<const std::byte> bytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

/// The samples of so many milliseconds.
std::uint64_t samplesIn(std::uint64_t milliseconds)
{
    return milliseconds * samplesPerSecond / 1000;
}

/// The frames whose moments are before that; the first is at 0.
std::uint64_t framesBefore(const FilmState &state, std::uint64_t milliseconds)
{
    const auto rate = static_cast<std::uint64_t>(state.framesPerSecond);
    return (milliseconds * rate + 999) / 1000;
}

std::size_t pixelCount(const FilmState &state)
{
    return static_cast<std::size_t>(state.width) * static_cast<std::size_t>(state.height);
}

std::string soundFile(const FilmState &state)
{
    return std::filesystem::path(state.file).replace_extension(".wav").string();
}

std::string wavHeader(std::uint64_t samples)
{
    std::string text;
    const auto number = [&](std::uint64_t value, unsigned size) {
        for (unsigned i = 0; i < size; ++i) {
            text += static_cast<char>(value >> 8 * i & 0xFFU);
        }
    };
    text += "RIFF";
    number(wavHeading - 8 + samples + samples % 2, 4);
    text += "WAVEfmt ";
    number(16, 4); // of the format
    number(1, 2);  // it is PCM
    number(1, 2);  // channels
    number(samplesPerSecond, 4);
    number(samplesPerSecond, 4); // bytes a second
    number(1, 2);                // bytes a sample
    number(8, 2);                // bits a sample
    text += "data";
    number(samples, 4);
    return text;
}

std::string heading(const FilmState &state)
{
    return "YUV4MPEG2 W" + std::to_string(state.width) + " H" + std::to_string(state.height) +
           " F" + std::to_string(state.framesPerSecond) + ":1 Ip A1:1 C444\n";
}

/// The pixel of `frame` that a film of the other shape shows at a place; none is black.
const host::Pixel *pixelAt(const FilmState &state, const host::Frame &frame, int x, int y)
{
    const int left = std::max(0, (state.width - frame.width * 3 / 4) / 2);
    const int top = std::max(0, (state.height - frame.height * 3 / 4) / 2);
    if (x < left || y < top || x >= state.width - left || y >= state.height - top) {
        return nullptr;
    }
    return frame.pixels + (4 * (y - top) + 2) / 3 * frame.width + (4 * (x - left) + 2) / 3;
}

} // namespace

host::Problem Film::begin(const std::string &file, int framesPerSecond, const host::Frame &frame)
{
    if (auto problem = end()) {
        return problem;
    }
    state_ = {file, framesPerSecond, frame.width, frame.height, 0};
    if (soundFile(state_) == file) {
        forget();
        return file + ": is where the sound would go";
    }
    if (auto problem = open(O_CREAT | O_TRUNC)) {
        return problem;
    }
    return pictures_.writeAll(bytesOf(heading(state_))) && sounds_.writeAll(bytesOf(wavHeader(0)))
               ? std::nullopt
               : fail(0);
}

host::Problem Film::open(int flags)
{
    pictures_ = host::Descriptor(state_.file, O_WRONLY | flags);
    sounds_ = host::Descriptor(soundFile(state_), O_WRONLY | flags);
    if (!pictures_ || !sounds_) {
        auto problem = host::fileProblem(pictures_ ? soundFile(state_) : state_.file);
        forget();
        return problem;
    }
    lseek(pictures_.number(), 0, SEEK_END);
    lseek(sounds_.number(), 0, SEEK_END);
    return std::nullopt;
}

host::Problem Film::pass(std::uint32_t milliseconds, const host::Frame &frame)
{
    if (!pictures_) {
        return std::nullopt;
    }
    const std::uint64_t end = state_.elapsed + milliseconds;
    std::uint64_t frames = framesBefore(state_, state_.elapsed);
    if (frames < framesBefore(state_, end)) {
        draw(frame);
    }
    for (; frames < framesBefore(state_, end); ++frames) {
        if (!pictures_.writeAll(std::as_bytes(std::span(picture_)))) {
            return fail(frames);
        }
    }
    std::vector<std::uint8_t> heard(samplesIn(end) - samplesIn(state_.elapsed), silentSample);
    const auto count = static_cast<std::ptrdiff_t>(std::min(heard.size(), sound_.size()));
    std::copy_n(sound_.begin(), count, heard.begin());
    sound_.erase(sound_.begin(), sound_.begin() + count);
    if (!sounds_.writeAll(std::as_bytes(std::span(heard)))) {
        return fail(frames);
    }
    state_.elapsed = end;
    return std::nullopt;
}

host::Problem Film::end()
{
    return !pictures_ || finish(framesBefore(state_, state_.elapsed))
               ? std::nullopt
               : host::Problem(host::fileProblem(state_.file));
}

void Film::play(std::span<const std::uint8_t> samples)
{
    sound_.insert(sound_.end(), samples.begin(), samples.end());
}

/// Ends the film with as many frames, and says why.
host::Problem Film::fail(std::uint64_t frames)
{
    auto problem = host::fileProblem(state_.file);
    finish(frames);
    return problem;
}

bool Film::finish(std::uint64_t frames)
{
    const std::uint64_t samples = samplesIn(state_.elapsed);
    const std::string header = wavHeader(samples);
    const std::uint64_t size =
        heading(state_).size() + frames * (frameHeading.size() + 3 * pixelCount(state_));
    const bool done =
        ftruncate(pictures_.number(), static_cast<off_t>(size)) == 0 &&
        ftruncate(sounds_.number(), static_cast<off_t>(wavHeading + samples + samples % 2)) == 0 &&
        pwrite(sounds_.number(), header.data(), header.size(), 0) ==
            static_cast<ssize_t>(header.size());
    forget();
    return done;
}

void Film::forget()
{
    state_.file.clear();
    pictures_.close();
    sounds_.close();
    sound_.clear();
}

/// Three planes, one behind the other.
void Film::draw(const host::Frame &frame)
{
    const std::size_t plane = pixelCount(state_);
    const bool upright = frame.width == state_.width;
    picture_.assign(frameHeading.begin(), frameHeading.end());
    picture_.resize(frameHeading.size() + 3 * plane);
    std::uint8_t *target = picture_.data() + frameHeading.size();
    for (int y = 0; y < state_.height; ++y) {
        for (int x = 0; x < state_.width; ++x) {
            const host::Pixel *pixel =
                upright ? frame.pixels + y * frame.width + x : pixelAt(state_, frame, x, y);
            const auto [luma, blue, red] = toYuv(host::unpack(pixel ? *pixel : host::Pixel{0}));
            target[0] = luma;
            target[plane] = blue;
            target[2 * plane] = red;
            ++target;
        }
    }
}

} // namespace pilot
