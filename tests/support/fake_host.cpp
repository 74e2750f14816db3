// The script of the fake host, and its records.
#include "support/fake_host.h"

#include <stdexcept>
#include <utility>

#include "host/moment.h"
#include "winuser.h"

void FakeHost::give(const host::Event &event, std::uint32_t delay) { add({delay, event, {}}); }

void FakeHost::act(std::function<void()> action, std::uint32_t delay)
{
    add({delay, std::nullopt, std::move(action)});
}

void FakeHost::add(Step step)
{
    const auto place = acting_ ? static_cast<std::ptrdiff_t>(early_++) : std::ssize(script_);
    script_.insert(script_.begin() + place, std::move(step));
}

FakeHost::Step FakeHost::takeStep()
{
    Step step = std::move(script_.front());
    script_.pop_front();
    early_ -= early_ > 0 ? 1 : 0;
    stepStart_ = clock;
    return step;
}

void FakeHost::key(int code, bool down, std::uint32_t delay)
{
    give({.kind = down ? Kind::KeyDown : Kind::KeyUp, .key = static_cast<std::uint16_t>(code)},
         delay);
}

void FakeHost::press(int code, bool shift)
{
    give({.kind = Kind::KeyDown, .key = static_cast<std::uint16_t>(code), .shift = shift});
    key(code, false);
}

void FakeHost::tap(int x, int y)
{
    stylus(Kind::StylusDown, x, y);
    stylus(Kind::StylusUp, x, y);
}

void FakeHost::type(std::u16string_view text)
{
    for (const char16_t unit : text) {
        give({.kind = Kind::Text, .text = unit});
    }
}

void FakeHost::run(std::uint32_t milliseconds)
{
    stepStart_ = clock;
    runLength_ = milliseconds;
    idleCalls_ = 0;
    MSG message;
    while (GetMessageW(&message, {}, 0, 0) != 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    runLength_.reset();
}

std::optional<host::Event> FakeHost::wait(std::optional<std::uint32_t> deadline)
{
    const bool poll = deadline && !host::isBefore(clock, *deadline);
    if (script_.empty() || (poll && host::isBefore(clock, stepStart_ + script_.front().delay))) {
        if (!poll) {
            finishRun(deadline);
        }
        return std::nullopt;
    }
    if (!poll) {
        return sleep(deadline);
    }
    return script_.front().event ? takeStep().event : std::nullopt;
}

/// Returns at the next step of the script or at the deadline, whichever is first.
std::optional<host::Event> FakeHost::sleep(std::optional<std::uint32_t> deadline)
{
    const std::uint32_t moment = stepStart_ + script_.front().delay;
    if (deadline && host::isBefore(*deadline, moment)) {
        clock = *deadline;
        return std::nullopt;
    }
    if (host::isBefore(clock, moment)) {
        clock = moment;
    }
    const Step step = takeStep();
    if (step.action) {
        const bool before = std::exchange(acting_, true);
        step.action();
        acting_ = before;
    }
    return step.event;
}

/// Waits after the end of the script: to the deadline, or to the end of the run, which ends every
/// loop that waits for messages.
void FakeHost::finishRun(std::optional<std::uint32_t> deadline)
{
    const std::uint32_t end = stepStart_ + runLength_.value_or(0);
    if (deadline && !host::isBefore(end, *deadline)) {
        clock = *deadline;
        return;
    }
    if (host::isBefore(clock, end)) {
        clock = end;
    }
    if (++idleCalls_ > 10000) {
        throw std::logic_error("a message loop goes on after WM_QUIT");
    }
    PostQuitMessage(0);
}

void FakeHost::present(const host::Frame &frame, const host::Area &changed)
{
    ++presented;
    corner = frame.pixels[0];
    lastChanged = changed;
}

void FakeHost::playSamples(std::span<const std::uint8_t> samples)
{
    queued.insert(queued.end(), samples.begin(), samples.end());
}

bool FakeHost::saveStore(std::span<const std::byte> bytes)
{
    if (storeFails) {
        return false;
    }
    ++saves;
    store.emplace(bytes.begin(), bytes.end());
    return true;
}

void FakeHost::setStoreAside()
{
    setAside = std::move(store);
    store.reset();
}

bool FakeHost::showHelp(std::u16string_view program, std::u16string_view arguments,
                        std::span<const std::byte> document, std::u16string_view anchor)
{
    std::u16string line{program};
    help.push_back(line.append(u" ").append(arguments).append(u"|").append(anchor));
    helpSize = document.size();
    return helpWorks;
}

void FakeHost::messageBoxOpened(std::u16string_view caption, std::u16string_view text)
{
    boxes.push_back(std::u16string(caption) + u"|" + std::u16string(text));
}
