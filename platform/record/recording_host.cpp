// Writes the record: lines are collected, and handed on when they may not be lost any more.
#include "record/recording_host.h"

#include <utility>

#include "host/moment.h"
#include "record/input_command.h"

namespace record {
namespace {

using host::Event;
using Kind = Event::Kind;

constexpr std::uint32_t digestInterval = 10000; ///< milliseconds
constexpr std::int32_t writeInterval = 1000;    ///< milliseconds

} // namespace

void RecordingHost::begin(const std::string &program, bool turned, Subject subject, Sink sink)
{
    subject_ = std::move(subject);
    sink_ = std::move(sink);
    store_ = inner_.loadStore();
    noted_ = nextDigest_ = ticks();
    pending_ = record::write({program, noted_, turned, store_});
    digested_.add(std::as_bytes(std::span(pending_)));
    write();
}

/// After a long delay the host skips moments, and the timers that were due in them.
std::optional<Event> RecordingHost::wait(std::optional<std::uint32_t> deadline)
{
    const std::uint32_t before = ticks();
    if (deadline && !host::isBefore(before, *deadline)) {
        return std::nullopt;
    }
    if (!sink_) {
        return inner_.wait(deadline);
    }
    noteProgram();
    const auto event = inner_.wait(deadline);
    if (event) {
        noteEvent(*event);
    } else if (ticks() == *deadline) {
        if (host::distance(written_, ticks()) >= writeInterval) {
            noteTime(ticks());
            write();
        }
    } else {
        noteTime(before);
        add("jump " + std::to_string(ticks() - before));
        noted_ = ticks();
        write();
    }
    return event;
}

/// The record is never behind the store.
bool RecordingHost::saveStore(std::span<const std::byte> bytes)
{
    catchUp();
    return inner_.saveStore(bytes);
}

void RecordingHost::catchUp()
{
    if (sink_) {
        noteTime(ticks());
        write();
    }
}

void RecordingHost::close()
{
    if (sink_) {
        noteDigest();
        pending_ += lastLine;
        write();
    }
}

/// The program has done all there is to do at this moment: what is it at?
void RecordingHost::noteProgram()
{
    const auto chapter = subject_.newChapter();
    if (chapter) {
        noteTime(ticks());
        add("# " + *chapter);
    }
    if (chapter || !host::isBefore(ticks(), nextDigest_)) {
        noteDigest();
        nextDigest_ = ticks() + digestInterval;
    }
}

void RecordingHost::noteDigest()
{
    noteTime(ticks());
    add("# digest " + inHex(digestOf(subject_, ticks())) + ' ' + inHex(digested_.value()));
}

void RecordingHost::noteEvent(const Event &event)
{
    noteTime(ticks());
    add(lineFor(event));
    const bool repeat = event.kind == Kind::KeyDown && event.key == lastKey_;
    if (event.kind == Kind::KeyDown) {
        lastKey_ = event.key;
    } else if (event.kind == Kind::KeyUp && event.key == lastKey_) {
        lastKey_ = 0;
    }
    const bool many = repeat || event.kind == Kind::StylusMove;
    if (!many || host::distance(written_, ticks()) >= writeInterval) {
        write();
    }
}

/// A line has at most half of the clock's range, which wraps.
void RecordingHost::noteTime(std::uint32_t moment)
{
    constexpr std::uint32_t longest = 1U << 30U;
    while (moment - noted_ > longest) {
        add("wait " + std::to_string(longest));
        noted_ += longest;
    }
    if (moment != noted_) {
        add("wait " + std::to_string(moment - noted_));
        noted_ = moment;
    }
}

void RecordingHost::add(const std::string &line)
{
    const std::size_t start = pending_.size();
    pending_ += line;
    pending_ += '\n';
    digested_.add(std::as_bytes(std::span(std::string_view(pending_).substr(start))));
}

void RecordingHost::write()
{
    written_ = ticks();
    size_ += pending_.size();
    const auto problem =
        size_ + lastLine.size() > largestSize ? host::Problem("it has 4 MB") : sink_(pending_);
    pending_.clear();
    if (problem) {
        sink_ = nullptr;
        report("the record ends here: " + *problem);
    }
}

} // namespace record
