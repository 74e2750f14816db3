// The speed of the pointer, and when it shows.
#include "host/stylus_pointer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/key_table.h"
#include "host/moment.h"

namespace host {
namespace {

constexpr std::uint32_t stepMilliseconds = 16; ///< about a display's frame
constexpr std::uint32_t longestStep = 50;      ///< after a stall it does not leap
constexpr std::uint32_t hideMilliseconds = 4000;

constexpr double deadZone = 0.24; ///< a released stick may rest anywhere within
constexpr double fastest = 280;   ///< pixels a second

/// A tap of an arrow moves one pixel. Held, it starts slowly enough to stop at any pixel.
constexpr std::uint32_t arrowDelay = 160;
constexpr double arrowStart = 40;         ///< pixels a second
constexpr double arrowAcceleration = 300; ///< in each second

constexpr std::array<std::uint16_t, 4> arrowKeys{padLeft, padUp, padRight, padDown};

} // namespace

void StylusPointer::setScreen(Size screen)
{
    if (screen_.width == 0) {
        position_ = {screen.width / 2.0, screen.height / 2.0};
    }
    screen_ = screen;
    moveBy({});
}

void StylusPointer::lean(double x, double y, std::uint32_t now)
{
    awake(now);
    const double length = std::hypot(x, y);
    if (length <= deadZone) {
        lean_ = {};
        return;
    }
    const double part = std::min(1.0, (length - deadZone) / (1 - deadZone));
    const double speed = fastest * part * part / length;
    lean_ = {x * speed, y * speed};
    visible_ = true;
}

void StylusPointer::press(bool down, std::uint32_t now)
{
    awake(now);
    const bool wasVisible = std::exchange(visible_, visible_ || down);
    setDown(down && wasVisible);
}

void StylusPointer::hold()
{
    held_ = true;
    visible_ = true;
}

bool StylusPointer::handleKey(std::uint16_t key, bool down, std::uint32_t now)
{
    const auto arrow = std::find(arrowKeys.begin(), arrowKeys.end(), key);
    if (!held_ || (arrow == arrowKeys.end() && key != padCentre && key != buttonD)) {
        return false;
    }
    if (arrow == arrowKeys.end()) {
        press(down, now);
        return true;
    }
    bool &isDown = arrowDown_[static_cast<std::size_t>(arrow - arrowKeys.begin())];
    if (isDown == down) {
        return true;
    }
    awake(now);
    const Vector before = arrows();
    if (before.isZero()) {
        arrowsSince_ = now;
    }
    isDown = down;
    if (down) {
        visible_ = true;
        moveBy({arrows().x - before.x, arrows().y - before.y});
    }
    return true;
}

void StylusPointer::letGo()
{
    setDown(false);
    arrowDown_ = {};
    lean_ = {};
    held_ = false;
    visible_ = false;
}

void StylusPointer::advance(std::uint32_t now)
{
    const auto moment = due();
    if (!moment || isBefore(now, *moment)) {
        return;
    }
    if (!isMoving()) {
        visible_ = false;
        return;
    }
    const double seconds = std::min(now - last_, longestStep) / 1000.0;
    const Vector speed = velocity(now);
    last_ = now;
    moveBy({speed.x * seconds, speed.y * seconds});
}

std::optional<std::uint32_t> StylusPointer::due() const
{
    if (isMoving()) {
        return last_ + stepMilliseconds;
    }
    const bool mayHide = visible_ && !held_ && !down_;
    return mayHide ? std::optional(last_ + hideMilliseconds) : std::nullopt;
}

std::optional<PointerLook> StylusPointer::look() const
{
    return visible_ ? std::optional(PointerLook{pixel(), down_}) : std::nullopt;
}

StylusPointer::Vector StylusPointer::arrows() const
{
    const auto [left, up, right, down] = arrowDown_;
    return {static_cast<double>(right - left), static_cast<double>(down - up)};
}

StylusPointer::Vector StylusPointer::velocity(std::uint32_t now) const
{
    const auto held = distance(arrowsSince_ + arrowDelay, now) / 1000.0;
    const double speed = held < 0 ? 0 : std::min(fastest, arrowStart + arrowAcceleration * held);
    const Vector way = arrows();
    return {lean_.x + way.x * speed, lean_.y + way.y * speed};
}

/// A pointer that moves keeps the rhythm of its steps.
void StylusPointer::awake(std::uint32_t now)
{
    if (!isMoving()) {
        last_ = now;
    }
}

void StylusPointer::moveBy(Vector way)
{
    const Point before = pixel();
    position_.x = std::clamp(position_.x + way.x, 0.0, screen_.width - 1.0);
    position_.y = std::clamp(position_.y + way.y, 0.0, screen_.height - 1.0);
    const Point after = pixel();
    if (down_ && after != before) {
        stylus_(Event::Kind::StylusMove, after);
    }
}

void StylusPointer::setDown(bool down)
{
    if (down != std::exchange(down_, down)) {
        stylus_(down ? Event::Kind::StylusDown : Event::Kind::StylusUp, pixel());
    }
}

Point StylusPointer::pixel() const
{
    return {static_cast<int>(position_.x), static_cast<int>(position_.y)};
}

} // namespace host
