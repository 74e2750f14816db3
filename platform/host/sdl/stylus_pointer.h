// A stylus for who has no mouse: a pointer on the screen that a controller's stick or a keyboard's
// arrows move, and that a press of the one or the other sets down. It knows no window and no clock
// of its own: moments are milliseconds of the desktop's clock, given with what happens.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "host/host.h"
#include "host/sdl/picture.h"

namespace desktop {

class StylusPointer
{
public:
    /// The stylus goes down, moves while it is down, or goes up, at a pixel of the screen.
    using Stylus = std::function<void(host::Event::Kind kind, Point pixel)>;

    explicit StylusPointer(Stylus stylus) : stylus_(std::move(stylus)) {}

    /// The pointer begins in the middle of the screen, and stays on it.
    void setScreen(Size screen);

    /// A stick leans, -32,768 to 32,767 to the right and down: the farther, the faster it goes.
    void lean(int x, int y, std::uint32_t now);
    /// The stick is pressed or let go. A pointer that is hidden comes to be seen first.
    void press(bool down, std::uint32_t now);

    /// The pointer shows, and the keys are its own until `letGo`.
    void hold();
    bool isHeld() const { return held_; }
    /// A key stands for the handheld's button `key`. False when it is none of the pointer's.
    bool handleKey(std::uint16_t key, bool down, std::uint32_t now);

    /// The mouse is used instead.
    void hide() { visible_ = false; }
    /// The stylus goes up, nothing is held any more, and the pointer hides.
    void letGo();

    /// Moves it on, and hides it after a rest.
    void advance(std::uint32_t now);
    /// When `advance` is due; none while there is nothing to do.
    std::optional<std::uint32_t> due() const;

    /// Where it is; none while it is hidden.
    std::optional<Point> shownAt() const;
    bool isDown() const { return down_; }

private:
    struct Vector
    {
        double x = 0;
        double y = 0;
        bool isZero() const { return x == 0 && y == 0; }
    };
    Vector arrows() const;
    Vector velocity(std::uint32_t now) const;
    bool isMoving() const { return !lean_.isZero() || !arrows().isZero(); }
    void awake(std::uint32_t now);
    void moveBy(Vector way);
    void setDown(bool down);
    Point pixel() const;

    Stylus stylus_;
    Size screen_;
    Vector position_; ///< pixels and parts of them
    Vector lean_;     ///< pixels a second
    std::array<bool, 4> arrowDown_{};
    std::uint32_t arrowsSince_ = 0;
    std::uint32_t last_ = 0; ///< when it last moved, or anything happened to it
    bool held_ = false;
    bool down_ = false;
    bool visible_ = false;
};

} // namespace desktop
