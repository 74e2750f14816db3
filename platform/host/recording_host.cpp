// Writing the script. Its last line may be a `wait` that grows in place while time passes, so that
// every moment is told before the program works in it.
#include "host/recording_host.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include "host/moment.h"

namespace host {
namespace {

std::string keyDown(const Event &event)
{
    std::string line = "key " + std::to_string(event.key) + " down";
    char joint = ' ';
    const auto add = [&](bool is, const char *name) {
        if (is) {
            line += std::exchange(joint, '+');
            line += name;
        }
    };
    add(event.control, "ctrl");
    add(event.shift, "shift");
    add(event.escape, "esc");
    return line;
}

std::string stylus(const char *action, const Event &event)
{
    return std::string("stylus ") + action + ' ' + std::to_string(event.x) + ' ' +
           std::to_string(event.y);
}

std::string commandFor(const Event &event)
{
    using Kind = Event::Kind;
    switch (event.kind) {
    case Kind::KeyDown:
        return keyDown(event);
    case Kind::KeyUp:
        return "key " + std::to_string(event.key) + " up";
    case Kind::Text:
        return "text " + std::to_string(static_cast<unsigned>(event.text));
    case Kind::StylusDown:
        return stylus("down", event);
    case Kind::StylusMove:
        return stylus("move", event);
    case Kind::StylusUp:
        return stylus("up", event);
    case Kind::Background:
        return "away";
    case Kind::Foreground:
        return "back";
    case Kind::Minimize:
        return "minimize";
    case Kind::Restore:
        return "restore";
    case Kind::Close:
        return "close";
    case Kind::Help:
        return "help";
    case Kind::Hibernate:
        return "hibernate";
    case Kind::Turn:
        return "turn " + std::to_string(event.orientation);
    }
    return {};
}

} // namespace

RecordingHost::RecordingHost(Host &inner, std::filesystem::path file, bool turned)
    : inner_(inner), name_(std::move(file)), told_(inner.ticks())
{
    std::error_code ignored;
    if (std::filesystem::exists(name_, ignored)) {
        problem_ = name_.string() + ": is there already";
        return;
    }
    file_.open(name_, std::ios::binary);
    file_ << "# clock " << told_ << (turned ? "\n# landscape\n" : "\n") << std::flush;
    end_ = file_.tellp();
    if (!file_) {
        problem_ = name_.string() + ": " + std::strerror(errno);
    }
}

/// A machine that was held up skips moments, and the timers that were due in them.
std::optional<Event> RecordingHost::wait(std::optional<std::uint32_t> deadline)
{
    const std::uint32_t before = ticks();
    if (deadline && !isBefore(before, *deadline)) {
        return std::nullopt;
    }
    const auto event = inner_.wait(deadline);
    if (event) {
        tellTime(ticks());
        tell(commandFor(*event));
    } else if (ticks() == *deadline) {
        tellTime(ticks());
    } else {
        tellTime(before);
        tell("jump " + std::to_string(ticks() - before));
    }
    return event;
}

/// What the program reads first is what was there when it started.
std::optional<std::vector<std::byte>> RecordingHost::loadStore()
{
    auto bytes = inner_.loadStore();
    if (bytes && !storeCopied_) {
        std::ofstream copy(name_.string() + ".reg", std::ios::binary);
        copy.write(reinterpret_cast<const char *>(bytes->data()),
                   static_cast<std::streamsize>(bytes->size()));
        copy.close();
        if (!copy) {
            report(name_.string() + ".reg: " + std::strerror(errno));
        }
    }
    storeCopied_ = true;
    return bytes;
}

/// Passed time is told by one line that is written anew while nothing happens. The clock wraps, so
/// one line tells less than half of its range.
void RecordingHost::tellTime(std::uint32_t moment)
{
    constexpr std::uint32_t longest = 1U << 30U;
    file_.seekp(end_);
    if (moment != told_) {
        file_ << "wait " << moment - told_ << '\n';
    }
    if (moment - told_ >= longest) {
        end_ = file_.tellp();
        told_ = moment;
    }
    finishWriting();
}

void RecordingHost::tell(const std::string &command)
{
    file_ << command << '\n';
    end_ = file_.tellp();
    told_ = ticks();
    finishWriting();
}

void RecordingHost::finishWriting()
{
    file_.flush();
    if (!file_ && problem_.empty()) {
        problem_ = name_.string() + ": " + std::strerror(errno);
        report("the record ends here: " + problem_);
    }
}

} // namespace host
