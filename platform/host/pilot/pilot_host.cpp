// Virtual time: the clock moves only while the program sleeps and the script lets time pass.
#include "host/pilot/pilot_host.h"

#include <cstdio>
#include <utility>

#include "base/utf.h"
#include "host/moment.h"

namespace pilot {
namespace {

constexpr int shortSide = 240;
constexpr int longSide = 320;

bool isLandscape(int orientation) { return orientation == 1 || orientation == 4; }

} // namespace

void say(const std::string &line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

int complain(const std::string &problem, int status)
{
    std::fprintf(stderr, "pilot: %s\n", problem.c_str());
    return status;
}

std::string inQuotes(std::u16string_view text)
{
    std::string result = "\"";
    for (const char c : base::toUtf8(text)) {
        if (c == '"' || c == '\\') {
            result += '\\';
        }
        result += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return result + '"';
}

PilotHost::PilotHost(const std::filesystem::path &storeFolder, RunState &state, Callbacks callbacks)
    : FileHost(storeFolder), state_(state), callbacks_(std::move(callbacks)),
      blank_(std::size_t{shortSide} * longSide), frame_{blank_.data(), shortSide, longSide},
      film_(state.film), landscape_(state.orientation == 4 ? 4 : 1)
{
    if (isLandscape(state.orientation)) {
        std::swap(frame_.width, frame_.height);
    }
}

std::optional<host::Event> PilotHost::wait(std::optional<std::uint32_t> deadline)
{
    for (;;) {
        if (!events_.empty()) {
            const host::Event event = events_.front();
            events_.pop_front();
            return event;
        }
        if (deadline && !host::isBefore(state_.clock, *deadline)) {
            return std::nullopt;
        }
        if (passing_) {
            if (deadline && !host::isBefore(*passing_, *deadline)) {
                moveTo(*deadline);
                return std::nullopt;
            }
            moveTo(*passing_);
            passing_.reset();
        }
        callbacks_.act();
    }
}

void PilotHost::moveTo(std::uint32_t clock)
{
    const auto problem = film_.pass(clock - state_.clock, frame_);
    state_.clock = clock;
    if (problem) {
        callbacks_.filmFailed(*problem);
    }
}

void PilotHost::programEnded()
{
    state_.clock = passing_.value_or(state_.clock);
    passing_.reset();
    events_.clear();
}

/// The program may turn the display, too; the shape of the frame shows that.
void PilotHost::present(const host::Frame &frame, const host::Area &)
{
    frame_ = frame;
    const bool isTurned = isLandscape(state_.orientation);
    if (isTurned) {
        landscape_ = state_.orientation;
    }
    if (isTurned != (frame.width > frame.height)) {
        state_.orientation = isTurned ? 0 : landscape_;
    }
}

void PilotHost::playSamples(std::span<const std::uint8_t> samples)
{
    if (std::exchange(interrupted_, false) && !state_.sounds.empty()) {
        state_.sounds.back().cut = true;
    }
    const std::uint32_t start = speaker_.play(samples.size(), state_.clock);
    state_.sounds.push_back({start, static_cast<std::uint32_t>(samples.size())});
    film_.play(samples);
}

void PilotHost::dropSamples()
{
    interrupted_ = interrupted_ || samplesQueued();
    speaker_.drop();
    film_.silence();
}

std::vector<Sound> PilotHost::takeSounds()
{
    interrupted_ = false;
    return std::exchange(state_.sounds, {});
}

bool PilotHost::showHelp(std::u16string_view program, std::u16string_view arguments,
                         std::span<const std::byte>, std::u16string_view)
{
    say("exec " + base::toUtf8(program) + ' ' + base::toUtf8(arguments));
    return true;
}

void PilotHost::messageBoxOpened(std::u16string_view caption, std::u16string_view text)
{
    say("box " + inQuotes(caption) + ' ' + inQuotes(text));
}

} // namespace pilot
