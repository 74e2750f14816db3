// The commands of a script, by hand of a player who taps what can be seen.
#include "pilot/player.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

#include "base/utf.h"
#include "gdi/inventory.h"
#include "host/png.h"
#include "pilot/inspect.h"

namespace pilot {

using host::Event;

/// One line of the language.
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

const Player::Command *Player::findCommand(std::string_view name)
{
    const auto *found = std::find_if(std::begin(Command::all), std::end(Command::all),
                                     [name](const Command &each) { return each.name == name; });
    return found == std::end(Command::all) ? nullptr : found;
}

Player::Player(int script, World &world, const Will &will, const std::filesystem::path &storeFolder,
               const Subject &subject)
    : script_(script), world_(world), will_(will), subject_(subject),
      host_(storeFolder, world, {[this] { act(); }, [this] { timerHandled(); }})
{
    for (const std::uint16_t code : world_.held) {
        send(Event::Kind::KeyDown, code);
    }
    if (!world_.traceFile.empty()) {
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

/// The next step of the command in hand, or the next command. What a step adds comes before the
/// steps that were planned to follow it.
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
    if (trace_.is_open() && !trace_.flush()) {
        fail(1, world_.traceFile + ": " + std::strerror(errno));
    }
    bool readable = true;
    const auto line = readLine(script_, readable);
    ++world_.line;
    if (!readable) {
        fail(1, std::string("the script cannot be read: ") + std::strerror(errno));
    }
    if (!line) {
        programEnded_ ? will_.finishInOrder(0) : will_.finish(0);
    }
    std::string_view rest = *line;
    const std::string_view name = takeWord(rest);
    if (name.empty()) {
        return;
    }
    const Command *command = findCommand(name);
    if (!command) {
        fail(2, "there is no command \"" + std::string(name) + '"');
    }
    Arguments arguments;
    const std::string problem = readArguments(rest, command->arguments, arguments);
    if (!problem.empty()) {
        fail(2, std::string(name) + ": " + problem);
    }
    if (programEnded_ && command->needsProgram) {
        fail(2, std::string(name) + ": the program has ended");
    }
    (this->*command->carryOut)(arguments);
}

void Player::fail(int status, const std::string &reason)
{
    std::fprintf(stderr, "pilot: line %d: %s\n", world_.line, reason.c_str());
    will_.finish(status);
}

// Input ------------------------------------------------------------------------------------------

void Player::send(Event::Kind kind, std::uint16_t key, long modifiers)
{
    Event event;
    event.kind = kind;
    event.key = key;
    event.control = (modifiers & 1) != 0;
    event.shift = (modifiers & 2) != 0;
    event.escape = (modifiers & 4) != 0;
    host_.send(event);
}

void Player::tapPoint(POINT point)
{
    Event event;
    event.kind = Event::Kind::StylusDown;
    event.x = point.x;
    event.y = point.y;
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
        world_.held.insert(code);
        send(Event::Kind::KeyDown, code, arguments.numbers[2]);
    } else {
        world_.held.erase(code);
        send(Event::Kind::KeyUp, code);
    }
}

void Player::press(const Arguments &arguments)
{
    const auto code = static_cast<std::uint16_t>(arguments.numbers[0]);
    world_.held.erase(code);
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
    tapPoint({static_cast<LONG>(x), static_cast<LONG>(y)});
}

void Player::stylus(const Arguments &arguments)
{
    Event event;
    event.kind = arguments.text == "down"   ? Event::Kind::StylusDown
                 : arguments.text == "move" ? Event::Kind::StylusMove
                                            : Event::Kind::StylusUp;
    event.x = static_cast<int>(arguments.numbers[1]);
    event.y = static_cast<int>(arguments.numbers[2]);
    host_.send(event);
}

void Player::text(const Arguments &arguments)
{
    Event event;
    event.kind = Event::Kind::Text;
    event.text = static_cast<char16_t>(arguments.numbers[0]);
    host_.send(event);
}

void Player::type(const Arguments &arguments)
{
    Event event;
    event.kind = Event::Kind::Text;
    for (const char16_t unit : base::toUtf16(arguments.text)) {
        event.text = unit;
        host_.send(event);
    }
}

void Player::turn(const Arguments &arguments)
{
    world_.orientation = static_cast<int>(arguments.numbers[0]);
    Event event;
    event.kind = Event::Kind::Turn;
    event.orientation = world_.orientation;
    host_.send(event);
}

// Taps on what is shown --------------------------------------------------------------------------

void Player::menu(const Arguments &arguments)
{
    const int id = static_cast<int>(arguments.numbers[0]);
    if (inspect::menuOpen() && inspect::openMenuItem(id)) {
        tapMenuItem(id);
        return;
    }
    if (inspect::menuOpen()) {
        dismiss({});
    }
    then([this, id] {
        const auto index = inspect::menuBarButtonOf(id);
        if (!index) {
            fail(2, "menu: no menu holds command " + std::to_string(id));
        }
        open({{*index}, {}});
    });
    then([this, id] { tapMenuItem(id); });
}

void Player::tapMenuItem(int id)
{
    const auto item = inspect::openMenuItem(id);
    if (!item) {
        fail(2, "menu: the menu with command " + std::to_string(id) + " did not open");
    }
    if (item->enabled) {
        tapPoint(item->centre);
    } else {
        say("grayed " + std::to_string(id));
        dismiss({});
    }
}

void Player::open(const Arguments &arguments)
{
    const auto button = inspect::menuBarButton(static_cast<int>(arguments.numbers[0]));
    if (!button) {
        fail(2, "open: there is no menu-bar button " + std::to_string(arguments.numbers[0]));
    }
    tapPoint(button->centre);
}

/// Elsewhere is the left end of the title bar, where nothing else takes a tap.
void Player::dismiss(const Arguments &) { tapPoint({4, 4}); }

void Player::click(const Arguments &arguments)
{
    const auto control = inspect::control(static_cast<int>(arguments.numbers[0]));
    if (!control || !control->enabled) {
        fail(2, "click: the active window has no visible, enabled control " +
                    std::to_string(arguments.numbers[0]));
    }
    tapPoint(control->centre);
}

void Player::select(const Arguments &arguments)
{
    const int id = static_cast<int>(arguments.numbers[0]);
    const int index = static_cast<int>(arguments.numbers[1]);
    click(arguments);
    then([this, id, index] {
        const auto item = inspect::openListItem(id, index);
        if (!item) {
            fail(2, "select: the list of control " + std::to_string(id) + " shows no item " +
                        std::to_string(index));
        }
        tapPoint(item->centre);
    });
}

void Player::done(const Arguments &)
{
    const auto button = inspect::okButton();
    if (!button) {
        fail(2, "done: the title bar has no OK button");
    }
    tapPoint(button->centre);
}

// The life of the program ------------------------------------------------------------------------

void Player::kill(const Arguments &) { will_.finish(0); }

void Player::restart(const Arguments &) { will_.restart(world_, programEnded_); }

// Looking ----------------------------------------------------------------------------------------

void Player::requireWritten(const std::string &problem)
{
    if (!problem.empty()) {
        fail(1, problem);
    }
}

void Player::shot(const Arguments &arguments)
{
    requireWritten(host::writePng(arguments.text, host_.frame()));
}

void Player::state(const Arguments &arguments)
{
    std::ofstream file(arguments.text, std::ios::binary);
    writeImage(file);
    file.close();
    requireWritten(file ? "" : arguments.text + ": " + std::strerror(errno));
}

void Player::trace(const Arguments &arguments)
{
    trace_.close();
    trace_.clear();
    world_.traceFile.clear();
    if (arguments.text != "off") {
        world_.traceFile = arguments.text;
        openTrace();
    }
}

/// A file that was traced to earlier in this run is continued.
void Player::openTrace()
{
    const bool begun = !world_.traced.insert(world_.traceFile).second;
    trace_.open(world_.traceFile, begun ? std::ios::binary | std::ios::app : std::ios::binary);
    requireWritten(trace_ ? "" : world_.traceFile + ": " + std::strerror(errno));
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
    if (const auto fault = world_.checks ? subject_.findFault() : std::nullopt) {
        fail(crashStatus, *fault);
    }
}

void Player::check(const Arguments &) { world_.checks = true; }

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
