// From the player's hands to the handheld's events: what keys, controllers and fingers mean,
// decided once for every host that has them. A host reports which key, button or stick moved, and
// when.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string_view>

#include "host/held_keys.h"
#include "host/host.h"
#include "host/stylus_pointer.h"

namespace host {

/// The modifier keys that are down.
struct KeyModifiers
{
    bool control = false;
    bool shift = false;
    bool alt = false;
    bool meta = false;
    bool altGraph = false; ///< types characters of a third level, whatever else it counts as
};

class InputMapper
{
public:
    /// Moments are milliseconds of the host's clock.
    using Clock = std::function<std::uint32_t()>;
    using Emit = std::function<void(const Event &)>;

    InputMapper(Clock now, Emit emit);

    // The keyboard -----------------------------------------------------------------------------

    /// `source`: a number of the key, the same until it goes up; `key`: its name (key_table.h).
    /// Returns whether the key is the handheld's, so that the host does nothing else with it.
    bool keyDown(int source, std::string_view key, KeyModifiers modifiers, bool repeated);
    void keyUp(int source, std::string_view key);
    /// A character was typed. Ignored unless text is wanted.
    void text(char16_t unit);
    /// While text is wanted, a key that types is no button. What is held at its beginning is
    /// released.
    void wantText(bool wanted);

    /// Whether a viewer of a record is at the keys, buttons and screen: all they do is Watch
    /// events.
    void setWatching(bool watching) { watching_ = watching; }

    // Controllers, numbered as the standard gamepad of browsers ---------------------------------

    /// Returns whether the button asks for full screen, on and off, which only the host can do.
    bool controllerButton(int controller, int button, bool down);
    /// Axis 0 and 1: left stick, 2 and 3: right stick; to the right and down, -1 to 1.
    void controllerAxis(int controller, int axis, double value);
    void controllerGone(int controller);

    // Fingers and the stylus --------------------------------------------------------------------

    /// A finger comes to or leaves (0) a button of the handheld's face.
    void finger(int finger, std::uint16_t button);
    /// The mouse or a finger on the screen. Nothing while the pointer is down.
    void stylusDown(Point pixel);
    void stylusMove(Point pixel);
    void stylusUp();

    // Coming and going --------------------------------------------------------------------------

    /// Another program came to the front, or this one came back. While it is away nothing counts.
    void setAway(bool away);
    bool isAway() const { return away_; }
    void minimize();
    void restore();
    /// Sends one of the events without details: Close, Help, Hibernate.
    void system(Event::Kind kind);

    // The pointer -------------------------------------------------------------------------------

    void setScreen(Size screen) { pointer_.setScreen(screen); }
    /// Moves the pointer on; to be called when `due` has come, and after input.
    void advance() { pointer_.advance(now_()); }
    std::optional<std::uint32_t> due() const { return pointer_.due(); }
    const StylusPointer &pointer() const { return pointer_; }

private:
    struct Controller
    {
        bool back = false;
        double x = 0; ///< of the right stick
        double y = 0;
        bool leftStick[2][2] = {}; ///< whether each side of each axis counts as pressed
    };

    void press(Source source, std::uint16_t key, KeyModifiers modifiers = {}, bool escape = false);
    void release(Source source);
    void sendKeyDown(std::uint16_t key, KeyModifiers modifiers, bool escape);
    void sendStylus(Event::Kind kind, Point pixel);
    void sendWatch(std::optional<WatchCommand> command);
    void releaseKeys();
    void releaseEverything();
    void leftStick(int controller, int axis, double value);

    Clock now_;
    Emit emit_;
    StylusPointer pointer_;
    HeldKeys held_;
    std::map<int, Controller> controllers_;
    std::optional<Point> stylus_; ///< where it is down
    bool wantsText_ = false;
    bool away_ = false;
    bool watching_ = false;
};

} // namespace host
