// Virtual time: the clock moves only when the program sleeps and the user lets time pass.
#include "host/pilot/pilot_host.h"

#include <cstdio>
#include <utility>

#include "base/utf.h"
#include "host/moment.h"

namespace pilot {
namespace {

constexpr std::uint64_t samplesPerSecond = 22050;
constexpr int shortSide = 240;
constexpr int longSide = 320;

} // namespace

void say(const std::string &line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
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

PilotHost::PilotHost(const std::filesystem::path &storeFolder, World &world, User user)
    : FileHost(storeFolder), world_(world), user_(std::move(user)),
      landscape_(world.orientation == 4 ? 4 : 1)
{
    const bool turned = world.orientation == 1 || world.orientation == 4;
    frame_.width = turned ? longSide : shortSide;
    frame_.height = turned ? shortSide : longSide;
    blank_.resize(std::size_t{shortSide} * longSide);
    frame_.pixels = blank_.data();
}

bool PilotHost::isAhead(std::uint32_t moment) const { return host::isBefore(world_.clock, moment); }

std::optional<host::Event> PilotHost::wait(std::optional<std::uint32_t> deadline)
{
    for (;;) {
        if (!events_.empty()) {
            const host::Event event = events_.front();
            events_.pop_front();
            return event;
        }
        if (deadline && !isAhead(*deadline)) {
            return std::nullopt;
        }
        if (passing_) {
            if (deadline && !host::isBefore(*passing_, *deadline)) {
                world_.clock = *deadline;
                return std::nullopt;
            }
            world_.clock = *passing_;
            passing_.reset();
        }
        user_.act();
    }
}

void PilotHost::programEnded()
{
    world_.clock = passing_.value_or(world_.clock);
    passing_.reset();
    events_.clear();
}

/// The program turns the display as well, which shows in the shape of the screen.
void PilotHost::present(const host::Frame &frame, const host::Area &)
{
    frame_ = frame;
    const bool isTurned = world_.orientation == 1 || world_.orientation == 4;
    if (isTurned) {
        landscape_ = world_.orientation;
    }
    if (isTurned != (frame.width > frame.height)) {
        world_.orientation = isTurned ? 0 : landscape_;
    }
}

void PilotHost::playSamples(std::span<const std::uint8_t> samples)
{
    if (interrupted_ && !world_.sounds.empty()) {
        world_.sounds.back().cut = true;
    }
    interrupted_ = false;
    const std::uint32_t start = samplesQueued() ? *playingUntil_ : world_.clock;
    const std::uint64_t milliseconds =
        (samples.size() * 1000 + samplesPerSecond - 1) / samplesPerSecond;
    playingUntil_ = start + static_cast<std::uint32_t>(milliseconds);
    world_.sounds.push_back({start, static_cast<std::uint32_t>(samples.size())});
}

void PilotHost::dropSamples()
{
    interrupted_ = interrupted_ || samplesQueued();
    playingUntil_.reset();
}

bool PilotHost::samplesQueued() { return playingUntil_ && isAhead(*playingUntil_); }

std::vector<Sound> PilotHost::takeSounds()
{
    interrupted_ = false;
    return std::exchange(world_.sounds, {});
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
