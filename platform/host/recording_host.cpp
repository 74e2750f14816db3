// Writes the script. Its last line may be a `wait` that grows in place while time passes, so that a
// moment is in the file before the program does anything in it.
#include "host/recording_host.h"

#include <utility>

#include "host/moment.h"

namespace host {
namespace {

std::string keyDown(const Event &event)
{
    std::string line = "key " + std::to_string(event.key) + " down";
    char joint = ' ';
    for (const auto &[isSet, name] :
         {std::pair(event.control, "ctrl"), std::pair(event.shift, "shift"),
          std::pair(event.escape, "esc")})
    {
        if (isSet) {
            line += std::exchange(joint, '+');
            line += name;
        }
    }
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

Problem RecordingHost::begin(const std::filesystem::path &file, bool turned)
{
    name_ = file;
    written_ = inner_.ticks();
    if (std::error_code ignored; std::filesystem::exists(file, ignored)) {
        return name_ + ": exists already";
    }
    file_.open(file, std::ios::binary);
    file_ << "# clock " << written_ << (turned ? "\n# landscape\n" : "\n") << std::flush;
    end_ = file_.tellp();
    return file_ ? std::nullopt : Problem(fileProblem(name_));
}

/// After a long delay the host skips moments, and the timers that were due in them.
std::optional<Event> RecordingHost::wait(std::optional<std::uint32_t> deadline)
{
    const std::uint32_t before = ticks();
    if (deadline && !isBefore(before, *deadline)) {
        return std::nullopt;
    }
    const auto event = inner_.wait(deadline);
    if (event) {
        writeTime(ticks());
        writeCommand(commandFor(*event));
    } else if (ticks() == *deadline) {
        writeTime(ticks());
    } else {
        writeTime(before);
        writeCommand("jump " + std::to_string(ticks() - before));
    }
    return event;
}

std::optional<std::vector<std::byte>> RecordingHost::loadStore()
{
    auto bytes = inner_.loadStore();
    if (bytes && !storeCopied_) {
        std::ofstream copy(name_ + ".reg", std::ios::binary);
        copy.write(reinterpret_cast<const char *>(bytes->data()),
                   static_cast<std::streamsize>(bytes->size()));
        copy.close();
        if (!copy) {
            report(fileProblem(name_ + ".reg"));
        }
    }
    storeCopied_ = true;
    return bytes;
}

/// While nothing happens, one line grows. The clock wraps, so a line ends before half of its range
/// has passed.
void RecordingHost::writeTime(std::uint32_t moment)
{
    constexpr std::uint32_t longest = 1U << 30U;
    file_.seekp(end_);
    if (moment != written_) {
        file_ << "wait " << moment - written_ << '\n';
    }
    if (moment - written_ >= longest) {
        end_ = file_.tellp();
        written_ = moment;
    }
    finishWriting();
}

void RecordingHost::writeCommand(const std::string &command)
{
    file_ << command << '\n';
    end_ = file_.tellp();
    written_ = ticks();
    finishWriting();
}

void RecordingHost::finishWriting()
{
    file_.flush();
    if (!file_ && !std::exchange(failed_, true)) {
        report("the record ends here: " + fileProblem(name_));
    }
}

} // namespace host
