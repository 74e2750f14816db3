// The desktop host as a class: SDL's events become the handheld's.
#pragma once

#include "host/input_mapper.h"
#include "host/sdl/controllers.h"
#include "host/sdl/desktop.h"
#include "host/sdl/loudspeaker.h"
#include "host/sdl/screen_window.h"
#include "host/timeline.h"

namespace desktop {

class DesktopHost final : public Desktop
{
public:
    DesktopHost(const Options &options, std::unique_ptr<ScreenWindow> window);
    /// Keeps the place of the window for the next run.
    ~DesktopHost() override;

    void keepPlace() override;
    std::uint32_t ticks() const override { return timeline_.ticks(); }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &frame, const host::Area &changed) override;
    void describeProgram(std::u16string_view title, const host::Icon &icon) override;
    void raise() override { window_->raise(); }
    void wantText(bool wanted) override;
    bool hasLoudspeaker() override { return loudspeaker_.exists(); }
    void playSamples(std::span<const std::uint8_t> samples) override;
    void dropSamples() override { loudspeaker_.drop(); }
    bool samplesQueued() override { return loudspeaker_.queued(); }
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override;
    void showProgress(const std::optional<host::Progress> &progress) override;
    void showWatchKeys() override;

private:
    void storeTried(const host::Problem &problem) override;
    void sleep(std::optional<std::uint32_t> until);
    void keepScreenOn(bool on);
    void takeEvents();
    void takeQueuedEvents();
    void handle(const SDL_Event &event);
    void handleWindow(const SDL_WindowEvent &event);
    void takeRequests();
    void handleKeyDown(const SDL_KeyboardEvent &key);
    void handleMouse(const SDL_MouseButtonEvent &button);
    void setMinimized(bool minimized);
    void showTitle();

    std::function<bool()> needsScreen_;
    std::unique_ptr<ScreenWindow> window_;
    Loudspeaker loudspeaker_;
    host::Timeline timeline_;
    std::uint32_t looked_ = timeline_.ticks(); ///< when it last looked for events
    host::InputMapper input_;
    Controllers controllers_;
    std::string title_;
    host::Problem unkept_; ///< why the store cannot be written
    bool screenKeptOn_ = false;
    bool minimized_ = false;
    bool blank_ = false;  ///< nothing could be drawn, which was reported
    bool quit_ = false;   ///< SDL has said so since the last takeRequests
    bool closed_ = false; ///< and so has the window
};

} // namespace desktop
