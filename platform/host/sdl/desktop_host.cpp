// The desktop host. The process sleeps in `sleep` and nowhere else.
#include "host/sdl/desktop_host.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "base/utf.h"
#include "host/help_page.h"
#include "host/sdl/keyboard.h"
#include "host/sdl/lost_display.h"
#include "host/sdl/requests.h"
#include "host/sdl/screenshot.h"
#include "host/stepping_clock.h"

namespace desktop {
namespace {

using host::Event;

/// The machine's own clock: milliseconds since it was started, as on the handheld.
std::uint32_t machineTicks()
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    const auto now = static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
    static host::SteppingClock clock(now);
    return clock.at(now);
}

} // namespace

std::unique_ptr<Desktop> open(const Options &options)
{
    auto window = ScreenWindow::make(options.landscape ? Size{320, 240} : Size{240, 320},
                                     options.scale, loadWindowPlace(options.storeFolder));
    return window ? std::make_unique<DesktopHost>(options, std::move(window)) : nullptr;
}

DesktopHost::DesktopHost(const Options &options, std::unique_ptr<ScreenWindow> window)
    : Desktop(options.storeFolder), needsScreen_(options.needsScreen), window_(std::move(window)),
      timeline_(machineTicks(), options.latest),
      input_(machineTicks, [this](const Event &event) { timeline_.add(event, machineTicks()); }),
      controllers_(
          input_, storeFolder(), [this] { window_->toggleFullScreen(); },
          [this](const std::string &line) { report(line); })
{
    listenForRequests();
}

DesktopHost::~DesktopHost()
{
    keepPlace();
    needDisplayNoMore();
    if (displayIsLost()) {
        window_->abandon();
    }
}

void DesktopHost::keepPlace()
{
    if (const auto place = window_->lastPlace()) {
        saveWindowPlace(storeFolder(), *place);
    }
}

// Time and events --------------------------------------------------------------------------------

std::optional<Event> DesktopHost::wait(std::optional<std::uint32_t> deadline)
{
    const bool late = deadline && host::isBefore(ticks(), *deadline) &&
                      host::isBefore(looked_, *deadline) &&
                      !host::isBefore(machineTicks(), *deadline);
    if (late) {
        takeEvents(); // SDL's wait, which it will not come to, would look for them
    }
    return timeline_.wait(deadline, machineTicks, [this](auto until) { sleep(until); });
}

void DesktopHost::sleep(std::optional<std::uint32_t> until)
{
    if (window_->frame().pixels) {
        controllers_.start();
    }
    window_->showPointer(input_.pointer().look());
    keepScreenOn(needsScreen_ && needsScreen_());
    const std::uint32_t now = machineTicks();
    std::optional<int> longest;
    const auto limit = [&longest](std::optional<int> milliseconds) {
        longest = !longest ? milliseconds : std::min(*longest, milliseconds.value_or(*longest));
    };
    limit(controllers_.updateInterval());
    limit(loudspeaker_.tendInterval(now));
    for (const auto moment : {input_.due(), until}) {
        if (moment) {
            limit(host::remaining(now, *moment));
        }
    }
    bool waitedInVain = false;
    {
        const RequestsLetIn requests;
        withDisplay(
            [&] { waitedInVain = SDL_WaitEventTimeout(nullptr, longest.value_or(-1)) == 0; });
    }
    const std::uint32_t woken = machineTicks();
    controllers_.update(woken);
    loudspeaker_.tend(woken);
    waitedInVain ? takeQueuedEvents() : takeEvents();
}

/// Controllers do not keep it on by themselves.
void DesktopHost::keepScreenOn(bool on)
{
    if (on != screenKeptOn_ && !displayIsLost()) {
        screenKeptOn_ = on;
        on ? SDL_DisableScreenSaver() : SDL_EnableScreenSaver();
    }
}

/// Asking the display takes a dozen system calls.
void DesktopHost::takeEvents()
{
    withDisplay(SDL_PumpEvents); // SDL_PollEvent may leave some for the next time
    takeQueuedEvents();
}

void DesktopHost::takeQueuedEvents()
{
    looked_ = machineTicks();
    SDL_Event event;
    while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) > 0) {
        handle(event);
    }
    takeRequests();
    input_.advance();
}

void DesktopHost::handle(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_QUIT:
        quit_ = true;
        break;
    case SDL_APP_LOWMEMORY:
        input_.system(Event::Kind::Hibernate);
        break;
    case SDL_WINDOWEVENT:
        handleWindow(event.window);
        break;
    case SDL_KEYDOWN:
        handleKeyDown(event.key);
        break;
    case SDL_KEYUP:
        input_.keyUp(event.key.keysym.scancode, keyName(event.key.keysym));
        break;
    case SDL_TEXTINPUT:
        for (const char16_t unit : base::toUtf16(event.text.text)) {
            input_.text(unit);
        }
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        handleMouse(event.button);
        break;
    case SDL_MOUSEMOTION:
        input_.stylusMove(*window_->pictureAt({event.motion.x, event.motion.y}, true));
        break;
    default:
        controllers_.handle(event);
        break;
    }
}

void DesktopHost::takeRequests()
{
    const Requests requests = desktop::takeRequests(std::exchange(quit_, false));
    if (requests.close && displayIsLost()) {
        report("the display is gone, so the program ends; the game is kept");
        window_->abandon();
    } else if (requests.show) {
        window_->raise();
    }
    if (std::exchange(closed_, false) || requests.close) {
        input_.system(Event::Kind::Close);
    }
}

void DesktopHost::handleWindow(const SDL_WindowEvent &event)
{
    switch (event.event) {
    case SDL_WINDOWEVENT_CLOSE: // its SDL_QUIT may stand beside a request
        closed_ = true;
        break;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        window_->notePlace();
        window_->showAgain();
        break;
    case SDL_WINDOWEVENT_EXPOSED:
        window_->showAgain();
        break;
    case SDL_WINDOWEVENT_MOVED:
        window_->notePlace();
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        input_.setAway(true);
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        input_.setAway(false);
        break;
    case SDL_WINDOWEVENT_MINIMIZED:
        setMinimized(true);
        break;
    case SDL_WINDOWEVENT_RESTORED:
        setMinimized(false);
        break;
    default:
        break;
    }
}

/// A window is also "restored" when it is no longer maximized.
void DesktopHost::setMinimized(bool minimized)
{
    if (std::exchange(minimized_, minimized) != minimized) {
        minimized ? input_.minimize() : input_.restore();
    }
}

// Keys and the stylus ----------------------------------------------------------------------------

void DesktopHost::handleKeyDown(const SDL_KeyboardEvent &key)
{
    const bool pressed = key.repeat == 0;
    if (key.keysym.sym == SDLK_F11) {
        pressed ? window_->toggleFullScreen() : void();
        return;
    }
    if (key.keysym.sym == SDLK_F12) {
        pressed ? report(saveScreenshot(window_->frame(), title_)) : void();
        return;
    }
    const unsigned held = key.keysym.mod;
    input_.keyDown(key.keysym.scancode, keyName(key.keysym),
                   {.control = (held & KMOD_CTRL) != 0,
                    .shift = (held & KMOD_SHIFT) != 0,
                    .alt = (held & KMOD_LALT) != 0,
                    .meta = (held & KMOD_GUI) != 0,
                    .altGraph = (held & (KMOD_RALT | KMOD_MODE)) != 0},
                   !pressed);
}

void DesktopHost::wantText(bool wanted)
{
    input_.wantText(wanted);
    wanted ? SDL_StartTextInput() : SDL_StopTextInput();
}

/// The mouse, or a finger, which SDL makes a mouse of.
void DesktopHost::handleMouse(const SDL_MouseButtonEvent &button)
{
    if (button.button != SDL_BUTTON_LEFT) {
        return;
    }
    const Point point{button.x, button.y};
    if (button.type == SDL_MOUSEBUTTONUP) {
        input_.stylusMove(*window_->pictureAt(point, true));
        input_.stylusUp();
    } else if (const auto pixel = window_->pictureAt(point, false)) {
        input_.stylusDown(*pixel);
    }
}

// Screen, sound, help ----------------------------------------------------------------------------

void DesktopHost::present(const host::Frame &frame, const host::Area &changed)
{
    input_.setScreen({frame.width, frame.height});
    if (!window_->show(frame, changed) && !displayIsLost() && !std::exchange(blank_, true)) {
        report(std::string("the window stays empty: ") + SDL_GetError());
    }
}

void DesktopHost::describeProgram(std::u16string_view title, const host::Icon &icon)
{
    title_ = base::toUtf8(title);
    window_->describe(title_, icon);
    showTitle();
}

/// Whoever plays on a desktop sees no terminal.
void DesktopHost::showTitle()
{
    window_->setTitle(unkept_ ? title_ + " - the game is not kept: " + *unkept_ : title_);
}

void DesktopHost::storeTried(const host::Problem &problem)
{
    if (problem != unkept_) {
        unkept_ = problem;
        showTitle();
    }
}

void DesktopHost::playSamples(std::span<const std::uint8_t> samples)
{
    loudspeaker_.play(samples, machineTicks());
}

bool DesktopHost::showHelp(std::u16string_view, std::u16string_view,
                           std::span<const std::byte> document, std::u16string_view anchor)
{
    const auto problem = host::openHelpPage(storeFolder(), document, base::toUtf8(anchor));
    if (problem) {
        report(*problem);
    }
    return !problem;
}

// Records ----------------------------------------------------------------------------------------

void DesktopHost::showProgress(const std::optional<host::Progress> &progress)
{
    input_.setWatching(progress.has_value());
    window_->setTitle(progress ? title_ + " - " + host::describe(*progress) : title_);
}

void DesktopHost::showWatchKeys()
{
    window_->showMessage("Watching a game", host::watchKeys);
    SDL_FlushEvents(SDL_KEYDOWN, SDL_KEYUP); // those that closed the message
}

} // namespace desktop
