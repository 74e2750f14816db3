// Controllers by SDL's mapping, which gives all of them the same buttons.
#include "host/sdl/controllers.h"

#include <iterator>

#include "host/files.h"

namespace desktop {
namespace {

constexpr int updateMilliseconds = 8;           ///< three times at least in a tick of the game
constexpr int searchMilliseconds = 3000;        ///< for a controller that comes back
constexpr std::uint32_t lookMilliseconds = 400; ///< for the first one

/// SDL's buttons by the numbers of the standard gamepad.
constexpr int standardButtons[] = {0, 1, 2, 3, 8, 16, 9, 10, 11, 4, 5, 12, 13, 14, 15};
static_assert(SDL_CONTROLLER_BUTTON_DPAD_RIGHT + 1 == std::size(standardButtons));
static_assert(SDL_CONTROLLER_AXIS_LEFTX == 0 && SDL_CONTROLLER_AXIS_RIGHTY == 3);

constexpr double axisRange = 32767;

} // namespace

Controllers::Controllers(host::InputMapper &input, const std::filesystem::path &folder,
                         std::function<void()> toggleFullScreen,
                         std::function<void(std::string)> report)
    : input_(input), mappings_(folder / "gamecontrollerdb.txt"),
      toggleFullScreen_(std::move(toggleFullScreen)), report_(std::move(report))
{
    SDL_SetHint(SDL_HINT_AUTO_UPDATE_JOYSTICKS, "0");
}

void Controllers::start()
{
    if (!started_) {
        const auto [mappings, problem] = host::readFile(mappings_);
        if (mappings) {
            SDL_SetHint(SDL_HINT_GAMECONTROLLERCONFIG, mappings->c_str());
        } else if (problem) {
            report_(*problem);
        }
        SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER);
        started_ = true;
    }
}

std::optional<int> Controllers::updateInterval() const
{
    if (!started_ || input_.isAway()) {
        return std::nullopt;
    }
    if (open_.empty()) {
        return everOpened_ ? std::optional(searchMilliseconds) : std::nullopt;
    }
    return updateMilliseconds;
}

void Controllers::update(std::uint32_t now)
{
    const bool due = !open_.empty() || now - updated_ >= lookMilliseconds;
    if (started_ && !input_.isAway() && due) {
        updated_ = now;
        SDL_GameControllerUpdate();
    }
}

void Controllers::reportUnknown(int index)
{
    char text[33];
    SDL_JoystickGetGUIDString(SDL_JoystickGetDeviceGUID(index), text, sizeof text);
    const std::string id = std::string(text).replace(4, 4, "0000"); // a checksum of the name
    const char *name = SDL_JoystickNameForIndex(index);
    if (SDL_IsGameController(index) == SDL_FALSE && unknown_.insert(id).second) {
        report_(std::string("the buttons of the controller ") + (name ? name : "") +
                " are not known; a line for " + id + " in " + mappings_.string() +
                " can name them");
    }
}

bool Controllers::handle(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_JOYDEVICEADDED:
        reportUnknown(event.jdevice.which);
        return true;
    case SDL_CONTROLLERDEVICEADDED:
        if (SDL_GameController *controller = SDL_GameControllerOpen(event.cdevice.which)) {
            const SDL_JoystickID id =
                SDL_JoystickInstanceID(SDL_GameControllerGetJoystick(controller));
            open_[id].reset(controller);
            everOpened_ = true;
        }
        return true;
    case SDL_CONTROLLERDEVICEREMOVED:
        input_.controllerGone(event.cdevice.which);
        open_.erase(event.cdevice.which);
        return true;
    case SDL_CONTROLLERBUTTONDOWN:
    case SDL_CONTROLLERBUTTONUP:
        if (event.cbutton.button < std::size(standardButtons) &&
            input_.controllerButton(event.cbutton.which, standardButtons[event.cbutton.button],
                                    event.type == SDL_CONTROLLERBUTTONDOWN))
        {
            toggleFullScreen_();
        }
        return true;
    case SDL_CONTROLLERAXISMOTION:
        if (event.caxis.axis <= SDL_CONTROLLER_AXIS_RIGHTY) {
            input_.controllerAxis(event.caxis.which, event.caxis.axis,
                                  event.caxis.value / axisRange);
        }
        return true;
    default:
        return false;
    }
}

} // namespace desktop
