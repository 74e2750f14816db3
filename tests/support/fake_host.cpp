// How the fake host's time passes.
#include "support/fake_host.h"

#include <stdexcept>

#include "host/moment.h"
#include "winuser.h"

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
