// The viewer's position goes on with the shown host's clock. Whatever the record has up to it
// happens at once and unseen, so seeking forwards is nothing but a position far ahead.
#include "record/watching_host.h"

#include <algorithm>
#include <utility>

#include "host/moment.h"

namespace record {
namespace {

using host::Event;
using host::WatchCommand;
using Kind = Event::Kind;

constexpr std::int64_t tickTime = 25;      ///< milliseconds
constexpr std::int64_t seekStep = 5000;    ///< milliseconds
constexpr int fastestSpeed = 64;           ///< quarters
constexpr int fastestWithSound = 8;        ///< quarters
constexpr std::int64_t frameTime = 15;     ///< milliseconds between two pictures at a high speed
constexpr std::int64_t longestLook = 1000; ///< milliseconds; the time shown goes on
constexpr std::uint64_t soundDelay = 200;  ///< milliseconds; what is further behind is silent

host::Area unite(const host::Area &a, const host::Area &b)
{
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

} // namespace

WatchingHost::WatchingHost(const Record &record, Subject subject, host::Host &shown,
                           const View &view, Callbacks callbacks)
    : Playback(record, std::move(subject)), shown_(shown), callbacks_(std::move(callbacks)),
      view_(view), realStart_(shown.ticks()), startPosition_(view.position)
{
    for (const Step &step : record.steps) {
        if (step.kind == Step::Kind::Chapter) {
            chapters_.push_back(&step);
        }
    }
}

std::optional<Event> WatchingHost::wait(std::optional<std::uint32_t> deadline)
{
    if (!offset_) {
        const auto event = Playback::wait(deadline);
        if (event && event->kind != Kind::KeyUp && isOver()) {
            mayMove(std::nullopt); // it may end the program, and with it the picture
        }
        if (!offset_) {
            return event;
        }
    }
    if (!released_.empty()) {
        const Event event = released_.back();
        released_.pop_back();
        return event;
    }
    return shown_.wait(deadline ? std::optional(*deadline - *offset_) : std::nullopt);
}

// Time --------------------------------------------------------------------------------------------

/// Sleeps until the viewer's position has come to the target.
bool WatchingHost::mayMove(std::optional<std::uint64_t> target)
{
    while (!ended_ && !offset_ && (!target || *target > view_.position)) {
        if (!target) {
            play(false);
        }
        showFrame();
        updateProgress();
        const auto event = shown_.wait(nextLook(target));
        advance();
        if (event && event->kind == Kind::Watch) {
            obey(*event);
        }
        ended_ = ended_ || (event && event->kind == Kind::Close);
    }
    reached_ = target.value_or(reached_);
    return !ended_ && !offset_;
}

/// When to look at the clock again, by the shown host's.
std::optional<std::uint32_t> WatchingHost::nextLook(std::optional<std::uint64_t> target) const
{
    if (!view_.playing || !target) {
        return std::nullopt;
    }
    const std::uint32_t now = shown_.ticks();
    const auto speed = static_cast<unsigned>(view_.quarterSpeed);
    const std::uint64_t moment =
        ((*target - std::min(*target, startPosition_)) * 4 + speed - 1) / speed;
    const auto due = static_cast<std::int64_t>(moment) - host::distance(realStart_, now);
    return now + static_cast<std::uint32_t>(
                     std::clamp(due, speed > 4 ? frameTime : std::int64_t{0}, longestLook));
}

void WatchingHost::advance()
{
    if (view_.playing) {
        const auto passed =
            static_cast<std::uint64_t>(std::max(0, host::distance(realStart_, shown_.ticks())));
        view_.position =
            std::min(record_.length,
                     startPosition_ + passed * static_cast<unsigned>(view_.quarterSpeed) / 4);
    }
}

void WatchingHost::countFromNow()
{
    realStart_ = shown_.ticks();
    startPosition_ = view_.position;
}

// Commands ----------------------------------------------------------------------------------------

void WatchingHost::obey(const Event &event)
{
    const auto here = static_cast<std::int64_t>(view_.position);
    switch (event.watch) {
    case WatchCommand::Toggle:
        play(!view_.playing);
        break;
    case WatchCommand::Tick:
        play(false);
        seek(here + tickTime);
        break;
    case WatchCommand::Back:
        seek(here - seekStep);
        break;
    case WatchCommand::Forward:
        seek(here + seekStep);
        break;
    case WatchCommand::PreviousChapter:
        seek(static_cast<std::int64_t>(otherChapter(false).value_or(0)));
        break;
    case WatchCommand::NextChapter:
        seek(static_cast<std::int64_t>(otherChapter(true).value_or(record_.length)));
        break;
    case WatchCommand::Start:
        seek(0);
        break;
    case WatchCommand::Seek:
        seek(event.x);
        break;
    case WatchCommand::Faster:
        setSpeed(view_.quarterSpeed * 2);
        break;
    case WatchCommand::Slower:
        setSpeed(view_.quarterSpeed / 2);
        break;
    case WatchCommand::TakeOver:
        takeOver();
        break;
    case WatchCommand::Help:
        play(false);
        updateProgress();
        shown_.showWatchKeys();
        countFromNow();
        break;
    case WatchCommand::End:
        ended_ = true;
        break;
    }
}

/// The position that the viewer asks for, perhaps outside the record.
void WatchingHost::seek(std::int64_t position)
{
    view_.position =
        std::min(static_cast<std::uint64_t>(std::max<std::int64_t>(position, 0)), record_.length);
    if (view_.position < reached_) {
        callbacks_.restart(view_);
        for (;;) {
            shown_.wait(std::nullopt); // until the fresh one is shown instead
        }
    }
    shown_.dropSamples();
    countFromNow();
}

void WatchingHost::play(bool playing)
{
    view_.playing = playing && view_.position < record_.length;
    countFromNow();
}

void WatchingHost::setSpeed(int quarterSpeed)
{
    view_.quarterSpeed = std::clamp(quarterSpeed, 1, fastestSpeed);
    countFromNow();
}

/// The start of a chapter, or none. Going back from one that has just begun means the one before.
std::optional<std::uint64_t> WatchingHost::otherChapter(bool next) const
{
    constexpr std::uint64_t justBegun = 1000; // milliseconds
    std::optional<std::uint64_t> found;
    for (const Step *step : chapters_) {
        if (next && step->at > view_.position) {
            return step->at;
        }
        if (step->at + justBegun < view_.position) {
            found = step->at;
        }
    }
    return next ? std::nullopt : found;
}

/// The user's hands are on the buttons now, and none of the recorded user's.
void WatchingHost::takeOver()
{
    offset_ = Playback::ticks() - shown_.ticks();
    for (const std::uint16_t key : heldKeys_) {
        released_.push_back({.kind = Kind::KeyUp, .key = key});
    }
    if (stylus_) {
        released_.push_back({.kind = Kind::StylusUp, .x = stylus_->x, .y = stylus_->y});
    }
    shown_.showProgress(std::nullopt);
    shown_.wantText(textWanted_);
}

// Screen and sound --------------------------------------------------------------------------------

void WatchingHost::present(const host::Frame &frame, const host::Area &changed)
{
    frame_ = frame;
    unseen_ = unseen_ ? unite(*unseen_, changed) : changed;
    if (offset_) {
        showFrame();
    }
}

/// A frame of another shape is shown as a whole, whatever has changed in it.
void WatchingHost::showFrame()
{
    if (unseen_) {
        const host::Area whole{0, 0, frame_.width, frame_.height};
        const bool fits = unseen_->right <= frame_.width && unseen_->bottom <= frame_.height;
        shown_.present(frame_, fits ? *unseen_ : whole);
        unseen_.reset();
        std::exchange(callbacks_.shown, [] {})();
    }
}

void WatchingHost::updateProgress()
{
    constexpr std::uint64_t second = 1000;
    const host::Progress now{static_cast<std::uint32_t>(view_.position),
                             static_cast<std::uint32_t>(record_.length), view_.quarterSpeed,
                             view_.playing, difference() ? *difference() : chapter()};
    host::Progress shown = now;
    shown.position = progress_.position;
    if (shown != progress_ || now.position / second != progress_.position / second ||
        (!now.playing && now.position != progress_.position))
    {
        shown_.showProgress(progress_ = now);
    }
}

std::string WatchingHost::chapter() const
{
    std::string last;
    for (const Step *step : chapters_) {
        if (step->at <= view_.position) {
            last = step->chapter;
        }
    }
    return last;
}

void WatchingHost::wantText(bool wanted)
{
    textWanted_ = wanted;
    if (offset_) {
        shown_.wantText(wanted);
    }
}

void WatchingHost::playSamples(std::span<const std::uint8_t> samples)
{
    Playback::playSamples(samples);
    const bool heard = view_.playing && view_.quarterSpeed <= fastestWithSound &&
                       position() + soundDelay > view_.position;
    if (heard || offset_) {
        shown_.playSamples(samples);
    }
}

void WatchingHost::dropSamples()
{
    Playback::dropSamples();
    shown_.dropSamples();
}

bool WatchingHost::showHelp(std::u16string_view program, std::u16string_view arguments,
                            std::span<const std::byte> document, std::u16string_view anchor)
{
    return !offset_ || shown_.showHelp(program, arguments, document, anchor);
}

} // namespace record
