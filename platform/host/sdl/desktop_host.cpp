// The desktop host. The process sleeps in `sleep` and nowhere else.
#include "host/sdl/desktop_host.h"

#include <algorithm>
#include <chrono>

#include "base/utf.h"
#include "host/help_page.h"
#include "host/sdl/keyboard.h"
#include "host/sdl/nudge.h"
#include "host/sdl/screenshot.h"

namespace desktop {
namespace {

using host::Event;

/// The machine's own clock: milliseconds since it was started, as on the handheld.
std::uint32_t machineTicks()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

} // namespace

std::unique_ptr<host::Host> open(const Options &options)
{
    const Size upright{240, 320};
    const Size turned{320, 240};
    auto window = ScreenWindow::make(options.landscape ? turned : upright, options.scale,
                                     loadWindowPlace(options.storeFolder));
    if (!window) {
        return nullptr;
    }
    return std::make_unique<DesktopHost>(options.storeFolder, std::move(window));
}

DesktopHost::DesktopHost(const std::filesystem::path &storeFolder,
                         std::unique_ptr<ScreenWindow> window)
    : FileHost(storeFolder), window_(std::move(window)),
      pointer_([this](Event::Kind kind, Point pixel) {
          if (kind == Event::Kind::StylusDown && stylus_) {
              moveStylus(Event::Kind::StylusUp, *stylus_); // the mouse's
          }
          moveStylus(kind, pixel);
      }),
      controllers_([this](int source, std::uint16_t key,
                          bool down) { moveKey(source, key, down, KMOD_NONE); },
                   controllerActions()),
      timeline_(machineTicks())
{
    listenForNudges();
}

DesktopHost::~DesktopHost()
{
    if (const auto place = window_->lastPlace()) {
        saveWindowPlace(storeFolder(), *place);
    }
}

// Time and events --------------------------------------------------------------------------------

std::optional<Event> DesktopHost::wait(std::optional<std::uint32_t> deadline)
{
    takeEvents();
    return timeline_.wait(deadline, machineTicks, [&] {
        sleep(deadline);
        takeEvents();
    });
}

void DesktopHost::sleep(std::optional<std::uint32_t> deadline)
{
    if (window_->frame().pixels) {
        controllers_.start();
    }
    showPointer();
    const std::uint32_t now = machineTicks();
    std::optional<int> longest;
    const auto limit = [&longest](std::optional<int> milliseconds) {
        longest = !longest ? milliseconds : std::min(*longest, milliseconds.value_or(*longest));
    };
    limit(controllers_.updateInterval());
    limit(loudspeaker_.tendInterval(now));
    for (const auto moment : {pointer_.due(), deadline}) {
        if (moment) {
            limit(host::remaining(now, *moment));
        }
    }
    SDL_WaitEventTimeout(nullptr, longest.value_or(-1));
    controllers_.update();
    loudspeaker_.tend(machineTicks());
}

void DesktopHost::takeEvents()
{
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        handle(event);
    }
    pointer_.advance(machineTicks());
}

void DesktopHost::push(const Event &event) { timeline_.add(event, machineTicks()); }

void DesktopHost::push(Event::Kind kind)
{
    Event event;
    event.kind = kind;
    push(event);
}

void DesktopHost::handle(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_QUIT:
        handleQuit();
        break;
    case SDL_APP_LOWMEMORY:
        push(Event::Kind::Hibernate);
        break;
    case SDL_WINDOWEVENT:
        handleWindow(event.window);
        break;
    case SDL_KEYDOWN:
        handleKeyDown(event.key);
        break;
    case SDL_KEYUP:
        handleKeyUp(event.key);
        break;
    case SDL_TEXTINPUT:
        handleText(event.text.text);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        if (event.button.button == SDL_BUTTON_LEFT) {
            handleMouse(event.type == SDL_MOUSEBUTTONDOWN ? Event::Kind::StylusDown
                                                          : Event::Kind::StylusUp,
                        {event.button.x, event.button.y});
        }
        break;
    case SDL_MOUSEMOTION:
        handleMouse(Event::Kind::StylusMove, {event.motion.x, event.motion.y});
        break;
    default:
        controllers_.handle(event);
        break;
    }
}

void DesktopHost::handleQuit()
{
    if (takeNudge()) {
        window_->raise();
    } else {
        push(Event::Kind::Close);
    }
}

void DesktopHost::handleWindow(const SDL_WindowEvent &event)
{
    switch (event.event) {
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
        setAway(true);
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        setAway(false);
        break;
    case SDL_WINDOWEVENT_MINIMIZED:
        minimize();
        break;
    case SDL_WINDOWEVENT_RESTORED:
        restore();
        break;
    default:
        break;
    }
}

// Coming and going -------------------------------------------------------------------------------

void DesktopHost::setAway(bool away)
{
    if (away == away_) {
        return;
    }
    if (away) {
        releaseEverything();
    }
    away_ = away;
    controllers_.setAway(away);
    push(away ? Event::Kind::Background : Event::Kind::Foreground);
}

void DesktopHost::minimize()
{
    if (!minimized_) {
        setAway(true);
        minimized_ = true;
        push(Event::Kind::Minimize);
    }
}

/// A window is also "restored" when it is no longer maximized.
void DesktopHost::restore()
{
    if (minimized_) {
        minimized_ = false;
        away_ = false;
        controllers_.setAway(false);
        push(Event::Kind::Restore);
    }
}

/// Keys and a stylus that are lifted while another window is looked at are lifted unseen.
void DesktopHost::releaseEverything()
{
    Event event;
    event.kind = Event::Kind::KeyUp;
    for (const std::uint16_t key : held_.releaseAll()) {
        event.key = key;
        push(event);
    }
    pointer_.letGo();
    if (stylus_) {
        moveStylus(Event::Kind::StylusUp, *stylus_);
    }
}

// Keys -------------------------------------------------------------------------------------------

void DesktopHost::handleKeyDown(const SDL_KeyboardEvent &key)
{
    const auto modifiers = static_cast<SDL_Keymod>(key.keysym.mod);
    const std::uint16_t code = virtualKey(key.keysym);
    if (pointer_.handleKey(code, true, machineTicks())) {
        return;
    }
    if (key.repeat != 0) {
        if (wantsText_ && code != 0) {
            pushKeyDown(code, modifiers, false);
        }
        return;
    }
    if (isPointerKey(key.keysym)) {
        releaseEverything();
        pointer_.hold();
        return;
    }
    switch (key.keysym.sym) {
    case SDLK_F1:
        push(Event::Kind::Help);
        break;
    case SDLK_F11:
        window_->toggleFullScreen();
        break;
    case SDLK_F12:
        report(saveScreenshot(window_->frame(), title_));
        break;
    default:
        moveKey(key.keysym.scancode, code, true, modifiers);
        break;
    }
}

void DesktopHost::handleKeyUp(const SDL_KeyboardEvent &key)
{
    if (isPointerKey(key.keysym)) {
        pointer_.letGo();
    }
    pointer_.handleKey(virtualKey(key.keysym), false, machineTicks());
    moveKey(key.keysym.scancode, 0, false, KMOD_NONE);
}

void DesktopHost::moveKey(int source, std::uint16_t key, bool down, SDL_Keymod modifiers)
{
    if (!down) {
        if (const std::uint16_t up = held_.release(source)) {
            Event event;
            event.kind = Event::Kind::KeyUp;
            event.key = up;
            push(event);
        }
    } else if (key != 0 && held_.press(source, key)) {
        pushKeyDown(key, modifiers, source == SDL_SCANCODE_ESCAPE);
    }
}

void DesktopHost::pushKeyDown(std::uint16_t key, SDL_Keymod modifiers, bool escape)
{
    Event event;
    event.kind = Event::Kind::KeyDown;
    event.key = key;
    event.control = (modifiers & KMOD_CTRL) != 0;
    event.shift = (modifiers & KMOD_SHIFT) != 0;
    event.escape = escape;
    push(event);
}

void DesktopHost::wantText(bool wanted)
{
    wantsText_ = wanted;
    wanted ? SDL_StartTextInput() : SDL_StopTextInput();
}

void DesktopHost::handleText(const char *text)
{
    if (pointer_.isHeld()) {
        return;
    }
    Event event;
    event.kind = Event::Kind::Text;
    for (const char16_t unit : base::toUtf16(text)) {
        event.text = unit;
        push(event);
    }
}

// The stylus: the mouse, a finger, which SDL makes a mouse of, or the pointer ---------------------

void DesktopHost::handleMouse(Event::Kind kind, Point point)
{
    if (pointer_.isDown()) {
        return;
    }
    pointer_.hide();
    const bool isDown = kind == Event::Kind::StylusDown;
    if (isDown == stylus_.has_value()) {
        return;
    }
    const auto pixel = window_->pictureAt(point, !isDown);
    const bool hasMoved = !stylus_ || pixel->x != stylus_->x || pixel->y != stylus_->y;
    if (pixel && (hasMoved || kind != Event::Kind::StylusMove)) {
        moveStylus(kind, *pixel);
    }
}

void DesktopHost::moveStylus(Event::Kind kind, Point pixel)
{
    Event event;
    event.kind = kind;
    event.x = pixel.x;
    event.y = pixel.y;
    push(event);
    stylus_ = kind == Event::Kind::StylusUp ? std::nullopt : std::optional(pixel);
}

Controllers::Others DesktopHost::controllerActions()
{
    return {[this](int x, int y) { pointer_.lean(x, y, machineTicks()); },
            [this](bool down) { pointer_.press(down, machineTicks()); },
            [this] { push(Event::Kind::Close); }, [this] { push(Event::Kind::Help); },
            [this] { window_->toggleFullScreen(); }};
}

void DesktopHost::showPointer()
{
    const auto tip = pointer_.shownAt();
    window_->showPointer(tip ? std::optional(PointerLook{*tip, pointer_.isDown()}) : std::nullopt);
}

// Screen, sound, help ----------------------------------------------------------------------------

void DesktopHost::present(const host::Frame &frame, const host::Area &changed)
{
    pointer_.setScreen({frame.width, frame.height});
    window_->show(frame, changed);
}

void DesktopHost::describeProgram(std::u16string_view title, const host::Icon &icon)
{
    title_ = base::toUtf8(title);
    window_->describe(title_, icon);
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

} // namespace desktop
