// The host: everything that the handheld needs from the machine it runs on, and that differs
// between a desktop, a test and a browser. The handheld knows nothing else of the machine, and a
// host knows nothing of the program.
//
// A host has a clock and events to wait for, a screen, a loudspeaker, one file of bytes that
// outlives the process, a way to show a help page, and a way to report to the user. All calls come
// from one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/watch.h"

namespace host {

/// Something that happened outside of the program.
struct Event
{
    enum class Kind
    {
        KeyDown,    ///< `key`, `control`, `shift`
        KeyUp,      ///< `key`
        Text,       ///< `text`: a character was typed, with whatever keys
        StylusDown, ///< `x`, `y`
        StylusMove, ///< `x`, `y`, only while the stylus is down
        StylusUp,   ///< `x`, `y`
        Background, ///< another program came to the front
        Foreground, ///< this one came back
        Minimize,   ///< implies Background
        Restore,    ///< implies Foreground
        Close,      ///< the user asks the program to end
        Help,       ///< the user asks for help
        Hibernate,  ///< the system is short of memory
        Turn,       ///< `orientation`: the user turned the display
        Watch,      ///< `watch`, perhaps `x`: the viewer of a record; never for the handheld
    };

    Kind kind{};
    std::uint16_t key = 0; ///< virtual-key code, 1 to 254
    bool control = false;  ///< the Ctrl key is held as well
    bool shift = false;    ///< the Shift key is held as well
    bool escape = false;   ///< the key is a keyboard's Esc, which cancels dialogs and menus
    char16_t text = 0;
    int x = 0;           ///< screen pixels, from the left
    int y = 0;           ///< screen pixels, from the top
    int orientation = 0; ///< 0 portrait, 1, 2, 4: a quarter, a half, three quarters turned
    WatchCommand watch{};
};

// Points, sizes and rectangles are in pixels.

struct Point
{
    int x = 0;
    int y = 0;

    friend bool operator==(const Point &, const Point &) = default;
};

struct Size
{
    int width = 0;
    int height = 0;
};

/// Right and bottom are exclusive.
struct Area
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// The screen's pixels, row by row from the top, 5-6-5 bits of red, green and blue each.
struct Frame
{
    const std::uint16_t *pixels = nullptr;
    int width = 0;  ///< 240, or 320 when turned
    int height = 0; ///< 320, or 240 when turned
};

/// A picture with 8 bits each of red, green, blue and opacity, row by row from the top.
struct Icon
{
    std::vector<std::uint8_t> rgba;
    int width = 0;
    int height = 0;
};

class Host
{
public:
    virtual ~Host() = default;

    // Time and events ------------------------------------------------------------------------

    /// Milliseconds, modulo 2^32. The clock stands still while the program works: it moves only
    /// inside `wait`.
    virtual std::uint32_t ticks() const = 0;
    /// The one place where the process sleeps: until an event comes, which is returned, or until
    /// the clock shows `deadline`, and then nothing is returned and ticks() is the deadline, or
    /// later when the machine was held up for long. A deadline that is not ahead (signed
    /// difference) only takes an event that is there already. Without a deadline it sleeps until
    /// an event comes.
    virtual std::optional<Event> wait(std::optional<std::uint32_t> deadline) = 0;

    // Screen. Hosts without a window only take the frame. ---------------------------------------

    /// Shows the frame, of which `changed` was drawn since the last call. Called before the
    /// process sleeps. The pixels stay where they are until the next call.
    virtual void present(const Frame &frame, const Area &changed) = 0;
    /// The title and icon of the program, once they are known.
    virtual void describeProgram(std::u16string_view, const Icon &) {}
    /// Brings the host's own window to the front, out of the task bar if need be.
    virtual void raise() {}
    /// An edit box has got or lost the focus. While one has it, typed characters are wanted as Text
    /// events.
    virtual void wantText(bool) {}

    // Sound: unsigned 8-bit mono samples, 22,050 a second -----------------------------------------

    virtual bool hasLoudspeaker() = 0;
    /// Queues samples behind those that still play. The caller keeps the memory until then.
    virtual void playSamples(std::span<const std::uint8_t> samples) = 0;
    /// Silence at once; nothing stays queued.
    virtual void dropSamples() = 0;
    /// Whether samples are still to be played.
    virtual bool samplesQueued() = 0;

    // The store: one file, registry.reg ----------------------------------------------------------

    /// What was stored last; none when there is no store yet.
    virtual std::optional<std::vector<std::byte>> loadStore() = 0;
    /// Replaces the store: afterwards, whatever happens, it holds the old bytes or the new ones.
    /// False when that failed; the host then reports it to the user, the first time.
    virtual bool saveStore(std::span<const std::byte> bytes) = 0;
    /// Keeps the present store under the name registry.reg.bad, so that no save replaces it.
    virtual void setStoreAside() = 0;

    // Other processes -----------------------------------------------------------------------------

    /// Whether another process runs the program on the same store. When none does, this one holds
    /// the store from now on.
    virtual bool runsElsewhere() { return false; }
    /// Brings that other process's window to the front.
    virtual void raiseOther() {}
    /// Starts the help viewer `program` on `arguments`; `document` is the HTML page that they
    /// name and `anchor` the place in it. False when it cannot be shown.
    virtual bool showHelp(std::u16string_view program, std::u16string_view arguments,
                          std::span<const std::byte> document, std::u16string_view anchor) = 0;
    /// Reports to the user what went wrong around the program, one line of UTF-8 without its end:
    /// on a terminal, on the standard error stream.
    virtual void report(std::string_view line) = 0;

    // Records -------------------------------------------------------------------------------------

    /// Shows where the viewer of a record is. Until it is called with none, all that the user does
    /// comes as Watch events, whatever the handheld would make of it.
    virtual void showProgress(const std::optional<Progress> &) {}
    /// Shows the viewer his keys.
    virtual void showWatchKeys() {}

    // For hosts that look at the program; the others do nothing ----------------------------------

    /// A message box has opened, with that caption and text.
    virtual void messageBoxOpened(std::u16string_view, std::u16string_view) {}
    /// The program's main window, the first it made, has handled a WM_TIMER.
    virtual void timerHandled() {}
};

} // namespace host
