// A host for unit tests: a virtual clock, a script of what the user does, a store in memory, and a
// record of the handheld's calls.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "handheld.h"
#include "host/host.h"

class FakeHost final : public host::Host
{
public:
    using Kind = host::Event::Kind;

    // The script, carried out in order. What an action gives comes before what was to follow it. -

    /// An event, `delay` milliseconds after the step before it.
    void give(const host::Event &event, std::uint32_t delay = 0) { add({delay, event, {}}); }
    /// Calls `action` when the handheld has handled everything before it and waits.
    void act(std::function<void()> action, std::uint32_t delay = 0)
    {
        add({delay, std::nullopt, std::move(action)});
    }
    void key(int code, bool down, std::uint32_t delay = 0)
    {
        give({.kind = down ? Kind::KeyDown : Kind::KeyUp, .key = static_cast<std::uint16_t>(code)},
             delay);
    }
    void press(int code, bool shift = false)
    {
        give({.kind = Kind::KeyDown, .key = static_cast<std::uint16_t>(code), .shift = shift});
        key(code, false);
    }
    void stylus(Kind kind, int x, int y) { give({.kind = kind, .x = x, .y = y}); }
    void tap(int x, int y)
    {
        stylus(Kind::StylusDown, x, y);
        stylus(Kind::StylusUp, x, y);
    }
    /// Taps what `find` finds then: tapAt(inspect::control, IDOK).
    template <class Target, class... Words>
    void tapAt(std::optional<Target> (*find)(Words...), Words... words)
    {
        act([=, this] {
            const auto [x, y] = find(words...).value().centre;
            tap(x, y);
        });
    }
    void type(std::u16string_view text)
    {
        for (const char16_t unit : text) {
            give({.kind = Kind::Text, .text = unit});
        }
    }

    /// Handles messages as a program does until the script is done, `milliseconds` more have passed
    /// and everything due by then is handled.
    void run(std::uint32_t milliseconds = 0);

    // What happened ---------------------------------------------------------------------------

    std::uint32_t clock = 1000;
    int presented = 0; ///< frames
    host::Area lastChanged{};
    std::uint16_t corner = 0; ///< the first pixel of the frame shown last
    std::u16string title;
    int raised = 0;
    bool textWanted = false;
    bool loudspeaker = true;                        ///< there is one
    std::vector<std::uint8_t> queued;               ///< samples still to be played
    std::optional<std::vector<std::byte>> store;    ///< registry.reg
    std::optional<std::vector<std::byte>> setAside; ///< registry.reg.bad
    bool storeFails = false;
    int saves = 0;
    bool helpWorks = true;
    std::vector<std::u16string> help; ///< "PROGRAM ARGUMENTS|ANCHOR"
    std::size_t helpSize = 0;         ///< of the page shown last, in bytes
    std::vector<std::string> reports;
    std::vector<std::u16string> boxes; ///< "CAPTION|TEXT"
    int timersHandled = 0;
    std::optional<host::Progress> progress; ///< of a viewer, as shown last

    std::uint32_t ticks() const override { return clock; }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &frame, const host::Area &changed) override
    {
        ++presented;
        corner = frame.pixels[0];
        lastChanged = changed;
    }
    void describeProgram(std::u16string_view name, const host::Icon &) override { title = name; }
    void raise() override { ++raised; }
    void wantText(bool wanted) override { textWanted = wanted; }
    bool hasLoudspeaker() override { return loudspeaker; }
    void playSamples(std::span<const std::uint8_t> samples) override
    {
        queued.insert(queued.end(), samples.begin(), samples.end());
    }
    void dropSamples() override { queued.clear(); }
    bool samplesQueued() override { return !queued.empty(); }
    std::optional<std::vector<std::byte>> loadStore() override { return store; }
    bool saveStore(std::span<const std::byte> bytes) override
    {
        if (storeFails) {
            return false;
        }
        ++saves;
        store.emplace(bytes.begin(), bytes.end());
        return true;
    }
    void setStoreAside() override { setAside = std::exchange(store, {}); }
    bool runsElsewhere() override { return false; }
    void raiseOther() override {}
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override
    {
        std::u16string line{program};
        help.push_back(line.append(u" ").append(arguments).append(u"|").append(anchor));
        helpSize = document.size();
        return helpWorks;
    }
    void report(std::string_view line) override { reports.emplace_back(line); }
    void messageBoxOpened(std::u16string_view caption, std::u16string_view text) override
    {
        boxes.push_back(std::u16string(caption) + u"|" + std::u16string(text));
    }
    void timerHandled() override { ++timersHandled; }
    void showProgress(const std::optional<host::Progress> &now) override { progress = now; }

private:
    struct Step
    {
        std::uint32_t delay = 0;
        std::optional<host::Event> event; ///< or none, and then
        std::function<void()> action;
    };

    void add(Step step)
    {
        const auto place = acting_ ? static_cast<std::ptrdiff_t>(early_++) : std::ssize(script_);
        script_.insert(script_.begin() + place, std::move(step));
    }
    Step takeStep()
    {
        Step step = std::move(script_.front());
        script_.pop_front();
        early_ -= early_ > 0 ? 1 : 0;
        stepStart_ = clock;
        return step;
    }
    std::optional<host::Event> sleep(std::optional<std::uint32_t> deadline);
    void finishRun(std::optional<std::uint32_t> deadline);

    std::deque<Step> script_;
    std::size_t early_ = 0; ///< so many of `script_` were given by actions
    bool acting_ = false;
    std::uint32_t stepStart_ = 1000; ///< when the step before the first of `script_` was done
    std::optional<std::uint32_t> runLength_;
    int idleCalls_ = 0;
};

/// What the build makes of handheld.rc.
std::span<const std::byte> testResources();

/// Keeps the handheld switched on during its lifetime.
struct SwitchedOn
{
    explicit SwitchedOn(std::span<const std::byte> resources = {}, int orientation = 0)
    {
        handheld::switchOn(host, resources, orientation);
    }
    SwitchedOn(const SwitchedOn &) = delete;
    SwitchedOn &operator=(const SwitchedOn &) = delete;
    ~SwitchedOn() { handheld::switchOff(); }

    FakeHost host;
};
