// The host of the pilot: a clock that jumps, events that a script makes, a screen in memory, and a
// loudspeaker that notes what it is given.
#pragma once

#include <deque>
#include <functional>

#include "host/file_host.h"
#include "host/pilot/film.h"
#include "host/pilot/run_state.h"
#include "host/silent_speaker.h"

namespace pilot {

/// Prints a line at once.
void say(const std::string &line);
/// Prints what is wrong, on the standard error stream. Returns `status`, for main.
int complain(const std::string &problem, int status = 1);
/// A text in quotation marks; those inside, backslashes and ends of lines are written \", \\, \n.
std::string inQuotes(std::u16string_view text);

class PilotHost final : public host::FileHost
{
public:
    /// What the host calls.
    struct Callbacks
    {
        std::function<void()> act;          ///< nothing is left to do: the next step of the script
        std::function<void()> timerHandled; ///< the main window has handled a WM_TIMER
        std::function<void(const std::string &)> filmFailed; ///< with the reason
    };

    PilotHost(const std::filesystem::path &storeFolder, RunState &state, Callbacks callbacks);

    /// Puts an event behind those that the program has not taken yet.
    void send(const host::Event &event) { events_.push_back(event); }
    /// Before the next `act` that many milliseconds pass, at most 2^31 - 1; timers fire when due.
    void pass(std::uint32_t milliseconds) { passing_ = state_.clock + milliseconds; }
    /// The clock jumps ahead: timers that were due in between are late, and fire once.
    void jump(std::uint32_t milliseconds) { moveTo(state_.clock + milliseconds); }
    /// The program has ended: time that should pass has passed, and events are dropped.
    void programEnded();
    /// What is on the screen.
    const host::Frame &frame() const { return frame_; }
    /// Sees all that is shown and heard.
    Film &film() { return film_; }
    /// The sounds since the last call.
    std::vector<Sound> takeSounds();

    std::uint32_t ticks() const override { return state_.clock; }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &frame, const host::Area &changed) override;
    bool hasLoudspeaker() override { return true; }
    void playSamples(std::span<const std::uint8_t> samples) override;
    void dropSamples() override;
    bool samplesQueued() override { return speaker_.isPlaying(state_.clock); }
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override;
    void messageBoxOpened(std::u16string_view caption, std::u16string_view text) override;
    void timerHandled() override { callbacks_.timerHandled(); }

private:
    void moveTo(std::uint32_t clock);

    RunState &state_;
    Callbacks callbacks_;
    std::deque<host::Event> events_;
    std::optional<std::uint32_t> passing_; ///< time passes until then
    std::vector<std::uint16_t> blank_;     ///< the screen before the program first shows it
    host::Frame frame_;
    Film film_;
    int landscape_; ///< how the display was turned when it last lay on its side: 1 or 4
    host::SilentSpeaker speaker_;
    bool interrupted_ = false; ///< the last sound was dropped before its end
};

} // namespace pilot
