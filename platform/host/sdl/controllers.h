// Game controllers, plugged in and out at any time. SDL would look at them every millisecond as
// long as one is there; this looks as often as a game needs it, and never while the game is away.
// For the first one it looks whenever the process is awake anyway: nobody who has none pays for it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "host/sdl/sdl.h"

namespace desktop {

class Controllers
{
public:
    /// A button of a controller moves. `source` tells it from every other key; `key` is the
    /// button of the handheld that it stands for.
    using Button = std::function<void(int source, std::uint16_t key, bool down)>;
    /// What a controller does besides.
    struct Others
    {
        /// The right stick leans, -32,768 to 32,767 to the right and down.
        std::function<void(int x, int y)> lean;
        /// The right stick is pressed or let go.
        std::function<void(bool down)> press;
        /// Back is held, and Start, X or Y is pressed: what keyboards have further keys for.
        std::function<void()> quit;
        std::function<void()> help;
        std::function<void()> toggleFullScreen;
    };

    Controllers(Button button, Others others);

    /// Begins to look for controllers; takes a few milliseconds the first time.
    void start();
    /// How long the process may sleep before `update` is due, in milliseconds; none: for ever.
    std::optional<int> updateInterval() const;
    /// Has SDL look at the controllers; events follow.
    void update();
    /// While the game is away nothing is looked at, and what SDL tells late is not heard.
    void setAway(bool away) { away_ = away; }
    /// Takes an event; false when it is none of a controller.
    bool handle(const SDL_Event &event);

private:
    struct Close
    {
        void operator()(SDL_GameController *c) const { SDL_GameControllerClose(c); }
    };
    void moveButton(SDL_JoystickID id, int button, bool down);
    bool actWithBack(SDL_JoystickID id, int button);
    void moveAxis(const SDL_ControllerAxisEvent &event);
    void moveStick(SDL_JoystickID id, int axis, int value);
    void moveRightStick(SDL_JoystickID id);

    Button button_;
    Others others_;
    bool started_ = false;
    bool away_ = false;
    bool everOpened_ = false;
    std::map<SDL_JoystickID, std::unique_ptr<SDL_GameController, Close>> open_;
};

} // namespace desktop
