// Game controllers, plugged in and out at any time. SDL would poll them every millisecond as long
// as one is there; this polls as often as a game needs it, and not while the game is in the
// background. For the first one it looks when the process is awake anyway, which costs players
// without one next to nothing.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "host/input_mapper.h"
#include "host/sdl/sdl.h"

namespace desktop {

class Controllers
{
public:
    /// In the folder may be a file gamecontrollerdb.txt, in SDL's format, for controllers that SDL
    /// does not know.
    Controllers(host::InputMapper &input, const std::filesystem::path &folder,
                std::function<void()> toggleFullScreen, std::function<void(std::string)> report);

    /// Begins to look for controllers; takes a few milliseconds the first time.
    void start();
    /// How long the process may sleep before `update` is due, in milliseconds; none: for ever.
    std::optional<int> updateInterval() const;
    /// Has SDL poll the controllers; events follow. While there are none, looks for them a
    /// few times a second at most. `now` is the desktop's clock.
    void update(std::uint32_t now);
    /// Handles an event; false when it is not about controllers. In the background, late events of
    /// buttons and sticks are dropped.
    bool handle(const SDL_Event &event);

private:
    void reportUnknown(int index);

    struct Close
    {
        void operator()(SDL_GameController *c) const { SDL_GameControllerClose(c); }
    };

    host::InputMapper &input_;
    std::filesystem::path mappings_;
    std::function<void()> toggleFullScreen_;
    std::function<void(std::string)> report_;
    std::set<std::string> unknown_; ///< those that were reported
    bool started_ = false;
    bool everOpened_ = false;
    std::uint32_t updated_ = 0;
    std::map<SDL_JoystickID, std::unique_ptr<SDL_GameController, Close>> open_;
};

} // namespace desktop
