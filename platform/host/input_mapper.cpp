// What the player's hands mean.
#include "host/input_mapper.h"

#include <utility>

#include "host/key_table.h"

namespace host {
namespace {

using Kind = Event::Kind;
using Device = Source::Device;

// Buttons of the standard gamepad.
constexpr int padX = 2;
constexpr int padY = 3;
constexpr int padBack = 8;
constexpr int padStart = 9;
constexpr int padRightStick = 11;
constexpr std::uint16_t padButtons[] = {buttonD, buttonC, buttonB,   buttonB, buttonB, buttonB,
                                        0,       0,       padCentre, buttonA, 0,       0,
                                        padUp,   padDown, padLeft,   padRight};

/// Sources of one controller: its buttons, and behind them the four directions of the left stick.
constexpr int sourcesPerController = 64;
constexpr int stickSource = 32;

// Hysteresis: between the two a direction keeps its state.
constexpr double stickPressed = 0.488;
constexpr double stickReleased = 0.336;

Source ofController(int controller, int number)
{
    return {Device::Controller, controller * sourcesPerController + number};
}

} // namespace

InputMapper::InputMapper(Clock now, Emit emit)
    : now_(std::move(now)), emit_(std::move(emit)), pointer_([this](Kind kind, Point pixel) {
          if (kind == Kind::StylusDown) {
              stylusUp(); // the mouse's
          }
          sendStylus(kind, pixel);
      })
{}

// The keyboard -----------------------------------------------------------------------------------

bool InputMapper::keyDown(int source, std::string_view key, KeyModifiers modifiers, bool repeated)
{
    if (away_) {
        return false;
    }
    if (watching_) {
        const auto command =
            modifiers.control && key == "q" ? std::optional(WatchCommand::End) : watchCommand(key);
        const bool mayRepeat = command == WatchCommand::Back || command == WatchCommand::Forward ||
                               command == WatchCommand::Tick;
        sendWatch(repeated && !mayRepeat ? std::nullopt : command);
        return command.has_value();
    }
    const std::uint16_t code = virtualKey(key);
    if (pointer_.handleKey(code, true, now_())) {
        return true;
    }
    if (isPointerKey(key)) {
        if (!repeated) {
            releaseEverything();
            pointer_.hold();
        }
        return true;
    }
    const bool command = !modifiers.altGraph && (modifiers.control || modifiers.alt);
    if (wantsText_ && (types(key) || key == "ControlLeft") && !(command && key == "q")) {
        return !command && !modifiers.meta; // it comes as text
    }
    // The browser and the desktop keep their combinations; Ctrl+Q is the program's own.
    const bool letter = code >= '0' && code <= 'Z' && key != "q";
    if (modifiers.meta || modifiers.alt || code == 0 || (modifiers.control && letter)) {
        return false;
    }
    if (key == "F1") {
        system(Kind::Help);
    } else if (!repeated) {
        press({Device::Keyboard, source}, code, modifiers, key == "Escape");
    } else if (wantsText_ && held_.isHeld({Device::Keyboard, source})) {
        sendKeyDown(code, modifiers, false);
    }
    return true;
}

void InputMapper::keyUp(int source, std::string_view key)
{
    if (isPointerKey(key)) {
        pointer_.letGo();
    }
    pointer_.handleKey(virtualKey(key), false, now_());
    release({Device::Keyboard, source});
}

void InputMapper::text(char16_t unit)
{
    if (wantsText_ && !away_ && !pointer_.isHeld()) {
        emit_({.kind = Kind::Text, .text = unit});
    }
}

void InputMapper::wantText(bool wanted)
{
    if (wanted && !wantsText_) {
        releaseKeys();
    }
    wantsText_ = wanted;
}

void InputMapper::sendWatch(std::optional<WatchCommand> command)
{
    if (command) {
        emit_({.kind = Kind::Watch, .watch = *command});
    }
}

// Controllers ------------------------------------------------------------------------------------

bool InputMapper::controllerButton(int controller, int button, bool down)
{
    if (away_) {
        return false;
    }
    if (watching_) {
        sendWatch(down ? watchCommand(button) : std::nullopt);
        return false;
    }
    bool &back = controllers_[controller].back;
    const Source source = ofController(controller, button);
    if (button == padBack) {
        back = down;
    }
    if (button == padRightStick) {
        pointer_.press(down, now_());
    } else if (!down) {
        release(source);
    } else if (back && (button == padStart || button == padX)) { // keyboards have keys for these
        system(button == padStart ? Kind::Close : Kind::Help);
    } else if (back && button == padY) {
        return true;
    } else if (button >= 0 && button < static_cast<int>(std::size(padButtons))) {
        press(source, padButtons[button]);
    }
    return false;
}

void InputMapper::controllerAxis(int controller, int axis, double value)
{
    if (away_ || watching_) {
        return;
    }
    if (axis < 2) {
        leftStick(controller, axis, value);
        return;
    }
    Controller &state = controllers_[controller];
    (axis == 2 ? state.x : state.y) = value;
    pointer_.lean(state.x, state.y, now_());
}

void InputMapper::leftStick(int controller, int axis, double value)
{
    constexpr std::uint16_t keys[2][2] = {{padLeft, padRight}, {padUp, padDown}};
    for (int side = 0; side < 2; ++side) {
        const double deflection = side == 0 ? -value : value;
        const Source source = ofController(controller, stickSource + axis * 2 + side);
        bool &down = controllers_[controller].leftStick[axis][side];
        if (!down && deflection >= stickPressed) {
            down = true;
            press(source, keys[axis][side]);
        } else if (down && deflection <= stickReleased) {
            down = false;
            release(source);
        }
    }
}

void InputMapper::controllerGone(int controller)
{
    for (int number = 0; number < sourcesPerController; ++number) {
        release(ofController(controller, number));
    }
    controllers_.erase(controller);
    pointer_.lean(0, 0, now_());
    pointer_.press(false, now_());
}

// Fingers and the stylus -------------------------------------------------------------------------

void InputMapper::finger(int finger, std::uint16_t button)
{
    release({Device::Finger, finger});
    if (!away_ && !watching_) {
        press({Device::Finger, finger}, button);
    }
}

void InputMapper::stylusDown(Point pixel)
{
    if (watching_) {
        sendWatch(WatchCommand::Toggle);
    } else if (!away_ && !stylus_ && !pointer_.isDown()) {
        pointer_.hide();
        sendStylus(Kind::StylusDown, pixel);
    }
}

void InputMapper::stylusMove(Point pixel)
{
    if (pointer_.isDown()) {
        return;
    }
    pointer_.hide();
    if (stylus_ && *stylus_ != pixel) {
        sendStylus(Kind::StylusMove, pixel);
    }
}

void InputMapper::stylusUp()
{
    if (stylus_ && !pointer_.isDown()) {
        sendStylus(Kind::StylusUp, *stylus_);
    }
}

// Coming and going -------------------------------------------------------------------------------

void InputMapper::setAway(bool away)
{
    if (away == away_) {
        return;
    }
    if (away) {
        releaseEverything();
    }
    away_ = away;
    system(away ? Kind::Background : Kind::Foreground);
}

void InputMapper::minimize()
{
    setAway(true);
    system(Kind::Minimize);
}

void InputMapper::restore()
{
    away_ = false; // which Restore implies
    system(Kind::Restore);
}

/// What is lifted while the game is away is lifted unseen.
void InputMapper::releaseEverything()
{
    releaseKeys();
    pointer_.letGo();
    stylusUp();
    controllers_.clear();
}

void InputMapper::releaseKeys()
{
    for (const std::uint16_t key : held_.releaseAll()) {
        emit_({.kind = Kind::KeyUp, .key = key});
    }
}

// Events -----------------------------------------------------------------------------------------

void InputMapper::press(Source source, std::uint16_t key, KeyModifiers modifiers, bool escape)
{
    if (key != 0 && held_.press(source, key)) {
        sendKeyDown(key, modifiers, escape);
    }
}

void InputMapper::release(Source source)
{
    if (const std::uint16_t key = held_.release(source)) {
        emit_({.kind = Kind::KeyUp, .key = key});
    }
}

void InputMapper::sendKeyDown(std::uint16_t key, KeyModifiers modifiers, bool escape)
{
    emit_({.kind = Kind::KeyDown,
           .key = key,
           .control = modifiers.control,
           .shift = modifiers.shift,
           .escape = escape});
}

void InputMapper::sendStylus(Kind kind, Point pixel)
{
    stylus_ = kind == Kind::StylusUp ? std::nullopt : std::optional(pixel);
    emit_({.kind = kind, .x = pixel.x, .y = pixel.y});
}

void InputMapper::system(Kind kind) { emit_({.kind = kind}); }

} // namespace host
