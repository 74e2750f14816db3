// Controllers by SDL's mapping, which gives all of them the same buttons.
#include "host/sdl/controllers.h"

#include "host/sdl/buttons.h"

namespace desktop {
namespace {

/// The keyboard's keys are numbered below this.
constexpr int firstSource = 1000;
constexpr int sourcesPerController = 64;
/// Behind the buttons: the four directions of the stick, two for each axis.
constexpr int stickSource = 32;

constexpr int updateMilliseconds = 8;    ///< three looks at least in a tick of the game
constexpr int searchMilliseconds = 3000; ///< for one that comes back
constexpr int stickPressed = 16000;      ///< of 32,767
constexpr int stickReleased = 11000;

int sourceOf(SDL_JoystickID id, int button)
{
    return firstSource + id * sourcesPerController + button;
}

std::uint16_t keyOf(int button)
{
    switch (button) {
    case SDL_CONTROLLER_BUTTON_DPAD_LEFT:
        return padLeft;
    case SDL_CONTROLLER_BUTTON_DPAD_UP:
        return padUp;
    case SDL_CONTROLLER_BUTTON_DPAD_RIGHT:
        return padRight;
    case SDL_CONTROLLER_BUTTON_DPAD_DOWN:
        return padDown;
    case SDL_CONTROLLER_BUTTON_BACK:
        return padCentre;
    case SDL_CONTROLLER_BUTTON_START:
        return buttonA;
    case SDL_CONTROLLER_BUTTON_X:
    case SDL_CONTROLLER_BUTTON_Y:
    case SDL_CONTROLLER_BUTTON_LEFTSHOULDER:
    case SDL_CONTROLLER_BUTTON_RIGHTSHOULDER:
        return buttonB;
    case SDL_CONTROLLER_BUTTON_B:
        return buttonC;
    case SDL_CONTROLLER_BUTTON_A:
        return buttonD;
    default:
        return 0;
    }
}

} // namespace

Controllers::Controllers(Button button, Others others)
    : button_(std::move(button)), others_(std::move(others))
{
    SDL_SetHint(SDL_HINT_AUTO_UPDATE_JOYSTICKS, "0");
}

void Controllers::start()
{
    if (!started_) {
        SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER);
        started_ = true;
    }
}

std::optional<int> Controllers::updateInterval() const
{
    if (!started_ || away_) {
        return std::nullopt;
    }
    if (open_.empty()) {
        return everOpened_ ? std::optional(searchMilliseconds) : std::nullopt;
    }
    return updateMilliseconds;
}

void Controllers::update()
{
    if (started_ && !away_) {
        SDL_GameControllerUpdate();
    }
}

bool Controllers::handle(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_CONTROLLERDEVICEADDED:
        if (SDL_GameController *controller = SDL_GameControllerOpen(event.cdevice.which)) {
            const SDL_JoystickID id =
                SDL_JoystickInstanceID(SDL_GameControllerGetJoystick(controller));
            open_[id].reset(controller);
            everOpened_ = true;
        }
        return true;
    case SDL_CONTROLLERDEVICEREMOVED:
        for (int i = 0; i < sourcesPerController; ++i) {
            button_(sourceOf(event.cdevice.which, i), 0, false);
        }
        others_.lean(0, 0);
        others_.press(false);
        open_.erase(event.cdevice.which);
        return true;
    case SDL_CONTROLLERBUTTONDOWN:
    case SDL_CONTROLLERBUTTONUP:
        if (!away_) {
            moveButton(event.cbutton.which, event.cbutton.button,
                       event.type == SDL_CONTROLLERBUTTONDOWN);
        }
        return true;
    case SDL_CONTROLLERAXISMOTION:
        if (!away_) {
            moveAxis(event.caxis);
        }
        return true;
    default:
        return false;
    }
}

void Controllers::moveButton(SDL_JoystickID id, int button, bool down)
{
    if (button == SDL_CONTROLLER_BUTTON_RIGHTSTICK) {
        others_.press(down);
        return;
    }
    if (!down || !actWithBack(id, button)) {
        button_(sourceOf(id, button), keyOf(button), down);
    }
}

/// False when the button is the program's.
bool Controllers::actWithBack(SDL_JoystickID id, int button)
{
    SDL_GameController *controller = SDL_GameControllerFromInstanceID(id);
    if (SDL_GameControllerGetButton(controller, SDL_CONTROLLER_BUTTON_BACK) == 0) {
        return false;
    }
    switch (button) {
    case SDL_CONTROLLER_BUTTON_START:
        others_.quit();
        return true;
    case SDL_CONTROLLER_BUTTON_X:
        others_.help();
        return true;
    case SDL_CONTROLLER_BUTTON_Y:
        others_.toggleFullScreen();
        return true;
    default:
        return false;
    }
}

void Controllers::moveAxis(const SDL_ControllerAxisEvent &event)
{
    if (event.axis == SDL_CONTROLLER_AXIS_RIGHTX || event.axis == SDL_CONTROLLER_AXIS_RIGHTY) {
        moveRightStick(event.which);
    } else {
        moveStick(event.which, event.axis, event.value);
    }
}

/// SDL tells of one axis at a time; the stick's way is both.
void Controllers::moveRightStick(SDL_JoystickID id)
{
    SDL_GameController *controller = SDL_GameControllerFromInstanceID(id);
    others_.lean(SDL_GameControllerGetAxis(controller, SDL_CONTROLLER_AXIS_RIGHTX),
                 SDL_GameControllerGetAxis(controller, SDL_CONTROLLER_AXIS_RIGHTY));
}

/// Between the two limits a direction stays as it is, so a trembling thumb is no drum roll.
void Controllers::moveStick(SDL_JoystickID id, int axis, int value)
{
    constexpr std::uint16_t keys[2][2] = {{padLeft, padRight}, {padUp, padDown}};
    if (axis != SDL_CONTROLLER_AXIS_LEFTX && axis != SDL_CONTROLLER_AXIS_LEFTY) {
        return;
    }
    for (int side = 0; side < 2; ++side) {
        const int deflection = side == 0 ? -value : value;
        const int source = sourceOf(id, stickSource + axis * 2 + side);
        if (deflection >= stickPressed) {
            button_(source, keys[axis][side], true);
        } else if (deflection <= stickReleased) {
            button_(source, keys[axis][side], false);
        }
    }
}

} // namespace desktop
