// A stylus for players without a mouse: a pointer on the screen that the right stick of a
// controller or the arrows of a keyboard move, and that a press of the stick or of Space sets down.
// Moments are milliseconds of the host's clock.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "host/host.h"

namespace host {

/// How it is to be drawn.
struct PointerLook
{
    Point tip; ///< pixel of the screen
    bool down = false;

    friend bool operator==(const PointerLook &, const PointerLook &) = default;
};

class StylusPointer
{
public:
    /// The stylus goes down, moves while it is down, or goes up, at a pixel of the screen.
    using Stylus = std::function<void(Event::Kind kind, Point pixel)>;

    explicit StylusPointer(Stylus stylus) : stylus_(std::move(stylus)) {}

    /// The pointer begins in the middle of the screen, and stays on it.
    void setScreen(Size screen);

    /// A stick leans, -1 to 1 to the right and down: the farther, the faster the pointer moves.
    void lean(double x, double y, std::uint32_t now);
    /// The stick is pressed or released. The first press of a hidden pointer only shows it.
    void press(bool down, std::uint32_t now);

    /// Shows the pointer and gives it the arrow keys until `letGo`.
    void hold();
    bool isHeld() const { return held_; }
    /// A key that stands for the handheld's button `key`. False when the pointer has no use for it.
    bool handleKey(std::uint16_t key, bool down, std::uint32_t now);

    /// Hides the pointer: the mouse is in use.
    void hide() { visible_ = false; }
    /// Lifts the stylus, releases everything and hides the pointer.
    void letGo();

    /// Moves the pointer on, and hides it after a rest.
    void advance(std::uint32_t now);
    /// The moment at which `advance` is due; none while there is nothing to do.
    std::optional<std::uint32_t> due() const;

    /// None while it is hidden.
    std::optional<PointerLook> look() const;
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
    std::uint32_t last_ = 0; ///< the last moment at which it moved or was used
    bool held_ = false;
    bool down_ = false;
    bool visible_ = false;
};

} // namespace host
