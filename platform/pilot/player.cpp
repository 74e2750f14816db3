// The commands of a script. Menus and controls are tapped where they can be seen.
#include "pilot/player.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

#include "base/utf.h"
#include "gdi/screen.h"
#include "host/png.h"
#include "pilot/inspect.h"

namespace pilot {

using host::Event;

struct Player::Command
{
    using enum Argument;

    std::string_view name;
    void (Player::*carryOut)(const Arguments &);
    ArgumentList arguments;
    bool needsProgram = true;

    static const Command all[];
};

constexpr Player::Command Player::Command::all[] = {
    {"wait", &Player::wait, {Milliseconds}},
    {"jump", &Player::jump, {Milliseconds}},
    {"key", &Player::key, {KeyCode, UpOrDown, OptionalModifiers}},
    {"press", &Player::press, {KeyCode, OptionalMilliseconds}},
    {"tap", &Player::tap, {Pixel, Pixel}},
    {"stylus", &Player::stylus, {StylusAction, Pixel, Pixel}},
    {"type", &Player::type, {Text}},
    {"text", &Player::text, {CodeUnit}},
    {"menu", &Player::menu, {Id}},
    {"open", &Player::open, {Index}},
    {"dismiss", &Player::dismiss, {}},
    {"click", &Player::click, {Id}},
    {"select", &Player::select, {Id, Index}},
    {"done", &Player::done, {}},
    {"chord", &Player::chord, {KeyCode}},
    {"away", &Player::systemEvent<Event::Kind::Background>, {}},
    {"back", &Player::systemEvent<Event::Kind::Foreground>, {}},
    {"minimize", &Player::systemEvent<Event::Kind::Minimize>, {}},
    {"restore", &Player::systemEvent<Event::Kind::Restore>, {}},
    {"turn", &Player::turn, {Orientation}},
    {"help", &Player::systemEvent<Event::Kind::Help>, {}},
    {"hibernate", &Player::systemEvent<Event::Kind::Hibernate>, {}},
    {"close", &Player::systemEvent<Event::Kind::Close>, {}},
    {"kill", &Player::kill, {}},
    {"restart", &Player::restart, {}, false},
    {"shot", &Player::shot, {File}},
    {"state", &Player::state, {File}},
    {"trace", &Player::trace, {File}},
    {"check", &Player::check, {}},
    {"tree", &Player::tree, {}},
    {"objects", &Player::objects, {}},
    {"sounds", &Player::sounds, {}, false},
    {"echo", &Player::echo, {Text}, false},
};

Player::Player(int script, RunState &state, const Outcome &outcome,
               const std::filesystem::path &storeFolder, const Subject &subject)
    : script_(script), state_(state), outcome_(outcome), subject_(subject),
      host_(storeFolder, state, {[this] { act(); }, [this] { timerHandled(); }})
{
    for (const std::uint16_t code : state_.held) {
        send(Event::Kind::KeyDown, code);
    }
    if (!state_.traceFile.empty()) {
        openTrace();
    }
}

void Player::programEnded(int exitCode)
{
    say("exit " + std::to_string(exitCode));
    host_.programEnded();
    steps_.clear();
    programEnded_ = true;
    for (;;) {
        act();
    }
}

/// The next step of the present command, or the next command. What a step adds comes before the
/// steps that follow it.
void Player::act()
{
    if (steps_.empty()) {
        readCommand();
        return;
    }
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    auto rest = std::exchange(steps_, {});
    step();
    std::move(rest.begin(), rest.end(), std::back_inserter(steps_));
}

void Player::readCommand()
{
    if (trace_.is_open()) {
        requireWritten(trace_.flush(), state_.traceFile);
    }
    const auto [line, problem] = readLine(script_);
    ++state_.line;
    require(problem);
    if (!line) {
        outcome_.finish(0, programEnded_);
    }
    std::string_view rest = *line;
    const std::string name(takeWord(rest));
    if (name.empty()) {
        return;
    }
    const auto *command = std::ranges::find(Command::all, name, &Command::name);
    if (command == std::end(Command::all)) {
        fail(2, "there is no command \"" + name + '"');
    }
    const auto [arguments, mistake] = readArguments(rest, command->arguments);
    if (mistake) {
        fail(2, name + ": " + *mistake);
    }
    if (programEnded_ && command->needsProgram) {
        fail(2, name + ": the program has ended");
    }
    (this->*command->carryOut)(arguments);
}

void Player::fail(int status, const std::string &reason)
{
    std::fprintf(stderr, "pilot: line %d: %s\n", state_.line, reason.c_str());
    outcome_.finish(status);
}

void Player::require(const host::Problem &problem)
{
    if (problem) {
        fail(1, *problem);
    }
}

void Player::requireWritten(const std::ostream &file, const std::string &name)
{
    if (!file) {
        fail(1, host::fileProblem(name));
    }
}

template <class T>
T Player::require(std::optional<T> found, const std::string &reason)
{
    if (!found) {
        fail(2, reason);
    }
    return *found;
}

// Input ------------------------------------------------------------------------------------------

void Player::send(Event::Kind kind, std::uint16_t key, int modifiers)
{
    host_.send({.kind = kind,
                .key = key,
                .control = (modifiers & 1) != 0,
                .shift = (modifiers & 2) != 0,
                .escape = (modifiers & 4) != 0});
}

void Player::sendText(std::u16string_view text)
{
    for (const char16_t unit : text) {
        host_.send({.kind = Event::Kind::Text, .text = unit});
    }
}

void Player::tapPoint(POINT point)
{
    Event event{.kind = Event::Kind::StylusDown, .x = point.x, .y = point.y};
    host_.send(event);
    event.kind = Event::Kind::StylusUp;
    then([this, event] { host_.send(event); });
}

void Player::wait(const Arguments &arguments)
{
    host_.pass(static_cast<std::uint32_t>(arguments.numbers[0]));
}

void Player::jump(const Arguments &arguments)
{
    host_.jump(static_cast<std::uint32_t>(arguments.numbers[0]));
}

void Player::key(const Arguments &arguments)
{
    const auto code = static_cast<std::uint16_t>(arguments.numbers[0]);
    if (arguments.text == "down") {
        state_.held.insert(code);
        send(Event::Kind::KeyDown, code, arguments.numbers[2]);
    } else {
        state_.held.erase(code);
        send(Event::Kind::KeyUp, code);
    }
}

void Player::press(const Arguments &arguments)
{
    const auto code = static_cast<std::uint16_t>(arguments.numbers[0]);
    state_.held.erase(code);
    send(Event::Kind::KeyDown, code);
    host_.pass(static_cast<std::uint32_t>(arguments.numbers[1]));
    then([this, code] { send(Event::Kind::KeyUp, code); });
}

void Player::chord(const Arguments &arguments)
{
    const auto code = static_cast<std::uint16_t>(arguments.numbers[0]);
    send(Event::Kind::KeyDown, code, 1);
    send(Event::Kind::KeyUp, code);
}

void Player::tap(const Arguments &arguments)
{
    const auto [x, y, none] = arguments.numbers;
    if (x >= host_.frame().width || y >= host_.frame().height) {
        fail(2, "tap: the point is not on the screen");
    }
    tapPoint({x, y});
}

void Player::stylus(const Arguments &arguments)
{
    const auto kind = arguments.text == "down"   ? Event::Kind::StylusDown
                      : arguments.text == "move" ? Event::Kind::StylusMove
                                                 : Event::Kind::StylusUp;
    const auto [none, x, y] = arguments.numbers;
    host_.send({.kind = kind, .x = x, .y = y});
}

void Player::text(const Arguments &arguments)
{
    sendText(std::u16string(1, static_cast<char16_t>(arguments.numbers[0])));
}

void Player::type(const Arguments &arguments) { sendText(base::toUtf16(arguments.text)); }

void Player::turn(const Arguments &arguments)
{
    state_.orientation = arguments.numbers[0];
    host_.send({.kind = Event::Kind::Turn, .orientation = state_.orientation});
}

// Taps on what is shown --------------------------------------------------------------------------

void Player::menu(const Arguments &arguments)
{
    const int id = arguments.numbers[0];
    if (inspect::menuOpen() && inspect::openMenuItem(id)) {
        tapMenuItem(id);
        return;
    }
    if (inspect::menuOpen()) {
        dismiss({});
    }
    then([this, id] {
        open({{require(inspect::menuBarButtonOf(id),
                       "menu: no menu holds command " + std::to_string(id))},
              {}});
    });
    then([this, id] { tapMenuItem(id); });
}

void Player::tapMenuItem(int id)
{
    const auto item = require(inspect::openMenuItem(id), "menu: the menu with command " +
                                                             std::to_string(id) + " did not open");
    if (item.enabled) {
        tapPoint(item.centre);
    } else {
        say("grayed " + std::to_string(id));
        dismiss({});
    }
}

void Player::open(const Arguments &arguments)
{
    const int index = arguments.numbers[0];
    tapPoint(require(inspect::menuBarButton(index),
                     "open: there is no menu-bar button " + std::to_string(index))
                 .centre);
}

/// Taps the left end of the title bar, where nothing else takes a tap.
void Player::dismiss(const Arguments &) { tapPoint({4, 4}); }

void Player::click(const Arguments &arguments)
{
    const auto control = inspect::control(arguments.numbers[0]);
    if (!control || !control->enabled) {
        fail(2, "click: the active window has no visible, enabled control " +
                    std::to_string(arguments.numbers[0]));
    }
    tapPoint(control->centre);
}

void Player::select(const Arguments &arguments)
{
    const int id = arguments.numbers[0];
    const int index = arguments.numbers[1];
    click(arguments);
    then([this, id, index] {
        tapPoint(require(inspect::openListItem(id, index),
                         "select: the list of control " + std::to_string(id) + " shows no item " +
                             std::to_string(index))
                     .centre);
    });
}

void Player::done(const Arguments &)
{
    tapPoint(require(inspect::okButton(), "done: the title bar has no OK button").centre);
}

// The end of the program ------------------------------------------------------------------------

void Player::kill(const Arguments &) { outcome_.finish(0); }

void Player::restart(const Arguments &) { outcome_.restart(state_, programEnded_); }

// Looking ----------------------------------------------------------------------------------------

void Player::shot(const Arguments &arguments)
{
    require(host::writePng(arguments.text, host_.frame()));
}

void Player::state(const Arguments &arguments)
{
    std::ofstream file(arguments.text, std::ios::binary);
    writeImage(file);
    file.close();
    requireWritten(file, arguments.text);
}

void Player::trace(const Arguments &arguments)
{
    trace_.close();
    trace_.clear();
    state_.traceFile.clear();
    if (arguments.text != "off") {
        state_.traceFile = arguments.text;
        openTrace();
    }
}

/// Appends to a file that was traced to before.
void Player::openTrace()
{
    const bool begun = !state_.traced.insert(state_.traceFile).second;
    trace_.open(state_.traceFile, begun ? std::ios::binary | std::ios::app : std::ios::binary);
    requireWritten(trace_, state_.traceFile);
}

void Player::writeImage(std::ostream &file)
{
    file.write(reinterpret_cast<const char *>(subject_.image.data()),
               static_cast<std::streamsize>(subject_.image.size()));
}

void Player::timerHandled()
{
    if (trace_.is_open()) {
        writeImage(trace_);
    }
    if (const auto fault = state_.checks ? subject_.findFault() : std::nullopt) {
        fail(crashStatus, *fault);
    }
}

void Player::check(const Arguments &) { state_.checks = true; }

void Player::tree(const Arguments &)
{
    for (const inspect::WindowView &window : inspect::windows()) {
        const RECT &rect = window.rect;
        std::string line(static_cast<std::size_t>(window.depth) * 2, ' ');
        line += base::toUtf8(window.className) + " id=" + std::to_string(window.id) +
                " rect=" + std::to_string(rect.left) + ',' + std::to_string(rect.top) + ',' +
                std::to_string(rect.right) + ',' + std::to_string(rect.bottom);
        line += window.active ? " active" : "";
        line += window.disabled ? " disabled" : "";
        line += window.hidden ? " hidden" : "";
        line += window.checked ? " checked=" + std::to_string(*window.checked) : "";
        say(line + ' ' + inQuotes(window.text));
    }
}

void Player::objects(const Arguments &)
{
    for (const std::string &line : inspect::liveObjects()) {
        say(line);
    }
    for (const std::string &line : gdi::liveObjects()) {
        say(line);
    }
}

void Player::sounds(const Arguments &)
{
    for (const Sound &sound : host_.takeSounds()) {
        say("sound " + std::to_string(sound.start) + ' ' + std::to_string(sound.samples) +
            (sound.cut ? " cut" : ""));
    }
}

void Player::echo(const Arguments &arguments) { say(arguments.text); }

} // namespace pilot
