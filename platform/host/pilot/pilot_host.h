// The host of the pilot: a clock that jumps, events that a script makes, a screen in memory, and a
// loudspeaker that only notes what it is given.
#pragma once

#include <deque>
#include <functional>

#include "host/file_host.h"
#include "host/pilot/world.h"

namespace pilot {

/// Prints a line at once.
void say(const std::string &line);
/// A text in quotation marks; those inside, backslashes and ends of lines are written \", \\, \n.
std::string inQuotes(std::u16string_view text);

class PilotHost final : public host::FileHost
{
public:
    /// Whoever plays the user's part.
    struct User
    {
        std::function<void()> act;          ///< the program sleeps, with nothing to wake it
        std::function<void()> timerHandled; ///< the main window has handled a WM_TIMER
    };

    PilotHost(const std::filesystem::path &storeFolder, World &world, User user);

    /// Puts an event behind those that the program has not taken yet.
    void send(const host::Event &event) { events_.push_back(event); }
    /// Lets time pass before the user acts again, at most 2^31 - 1 ms; timers fire on the way.
    void pass(std::uint32_t milliseconds) { passing_ = world_.clock + milliseconds; }
    /// The clock leaps ahead: what is due on the way is late, and due once.
    void jump(std::uint32_t milliseconds) { world_.clock += milliseconds; }
    /// The program is gone: time passes without it, and no one takes its events.
    void programEnded();
    /// What is on the screen.
    const host::Frame &frame() const { return frame_; }
    /// The sounds since the last call.
    std::vector<Sound> takeSounds();

    std::uint32_t ticks() const override { return world_.clock; }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &frame, const host::Area &changed) override;
    void describeProgram(std::u16string_view, const host::Icon &) override {}
    void raise() override {}
    void wantText(bool) override {}
    bool hasLoudspeaker() override { return true; }
    bool openLoudspeaker() override { return true; }
    void closeLoudspeaker() override { dropSamples(); }
    void playSamples(std::span<const std::uint8_t> samples) override;
    void dropSamples() override;
    bool samplesQueued() override;
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override;
    void messageBoxOpened(std::u16string_view caption, std::u16string_view text) override;
    void timerHandled() override { user_.timerHandled(); }

private:
    bool isAhead(std::uint32_t moment) const;

    World &world_;
    User user_;
    std::deque<host::Event> events_;
    std::optional<std::uint32_t> passing_; ///< time passes until then
    std::vector<std::uint16_t> blank_;     ///< the screen before the program first shows it
    host::Frame frame_;
    int landscape_; ///< how the display was turned when it last lay on its side
    std::optional<std::uint32_t> playingUntil_;
    bool interrupted_ = false; ///< the last sound was dropped before its end
};

} // namespace pilot
