// The record gives its events in the order of time, as a host with a real clock does: what is due
// at a moment comes before what the user did at that moment.
#include "record/playback.h"

#include <algorithm>
#include <utility>

#include "host/moment.h"

namespace record {

using host::Event;
using Kind = Event::Kind;

Playback::Playback(const Record &record, Subject subject)
    : record_(record), subject_(std::move(subject)), checked_(record.hasDigests()),
      clock_(record.beginning.clock), stores_{record.beginning.store}
{}

std::optional<Event> Playback::wait(std::optional<std::uint32_t> deadline)
{
    if (deadline && !host::isBefore(clock_, *deadline)) {
        return std::nullopt;
    }
    if (auto chapter = subject_.newChapter()) {
        chapter_ = *chapter;
    }
    for (;;) {
        while (next_ < record_.steps.size() && record_.steps[next_].at <= position_) {
            if (auto event = takeStep(record_.steps[next_++])) {
                return event;
            }
            if (deadline && !host::isBefore(clock_, *deadline)) {
                return std::nullopt; // after a jump, what was due comes before the next step
            }
        }
        const auto target = nextMoment(deadline);
        if (!target && !std::exchange(ended_, true)) {
            storesAtEnd_ = stores_;
        }
        if (!mayMove(target)) {
            return Event{.kind = Kind::Close};
        }
        clock_ += static_cast<std::uint32_t>(*target - position_);
        position_ = *target;
        if (deadline && !host::isBefore(clock_, *deadline)) {
            return std::nullopt;
        }
    }
}

/// Where the record or the deadline goes on; none at the end of the record.
std::optional<std::uint64_t> Playback::nextMoment(std::optional<std::uint32_t> deadline) const
{
    if (next_ == record_.steps.size() && position_ == record_.length) {
        return std::nullopt;
    }
    const std::uint64_t next =
        next_ < record_.steps.size() ? record_.steps[next_].at : record_.length;
    return deadline
               ? std::min(next,
                          position_ + static_cast<std::uint64_t>(host::distance(clock_, *deadline)))
               : next;
}

bool Playback::isOver() const
{
    return position_ == record_.length &&
           std::none_of(record_.steps.begin() + static_cast<std::ptrdiff_t>(next_),
                        record_.steps.end(),
                        [](const Step &step) { return step.kind == Step::Kind::Event; });
}

std::optional<Event> Playback::takeStep(const Step &step)
{
    if (step.kind == Step::Kind::Event) {
        noteHeld(step.event);
        stores_.erase(stores_.begin(),
                      stores_.end() - std::min<std::ptrdiff_t>(2, std::ssize(stores_)));
        return step.event;
    }
    if (step.kind == Step::Kind::Jump) {
        clock_ += step.jump;
        position_ += step.jump;
    }
    compare(step);
    return std::nullopt;
}

void Playback::compare(const Step &step)
{
    if (step.kind == Step::Kind::Chapter && checked_) {
        if (std::exchange(chapter_, {}) != step.chapter) {
            differ(step);
        }
    } else if (step.kind == Step::Kind::Digest) {
        if (digestOf(subject_, clock_) != step.state) {
            differ(step);
        } else if (!step.linesHold) {
            differ(step, "a line before it was changed");
        }
    }
}

void Playback::noteHeld(const Event &event)
{
    if (event.kind == Kind::KeyDown) {
        heldKeys_.insert(event.key);
    } else if (event.kind == Kind::KeyUp) {
        heldKeys_.erase(event.key);
    } else if (event.kind == Kind::StylusDown || event.kind == Kind::StylusMove) {
        stylus_ = {event.x, event.y};
    } else if (event.kind == Kind::StylusUp) {
        stylus_.reset();
    }
}

void Playback::differ(const Step &step, const std::string &what)
{
    if (!difference_) {
        difference_ = "differs at " + momentText(step.at) + ", line " + std::to_string(step.line) +
                      (what.empty() ? "" : ": " + what);
    }
}

/// The lines that follow the program's end, at the same moment, are compared with what it left.
void Playback::programEnded()
{
    for (; next_ < record_.steps.size(); ++next_) {
        const Step &step = record_.steps[next_];
        if (step.at != position_ || step.kind == Step::Kind::Event) {
            differ(step, "the program ended before");
            return;
        }
        compare(step);
    }
}

bool Playback::saveStore(std::span<const std::byte> bytes)
{
    stores_.emplace_back(std::in_place, bytes.begin(), bytes.end());
    return true;
}

} // namespace record
