// The commands of a script. Menus and controls are tapped where they can be seen.
#include "pilot/player.h"

#include <algorithm>
#include <deque>
#include <fstream>
#include <iterator>
#include <utility>

#include "base/utf.h"
#include "gdi/objects.h"
#include "host/descriptor.h"
#include "host/pilot/pilot_host.h"
#include "host/png.h"
#include "pilot/inspect.h"
#include "record/input_command.h"
#include "record/record.h"

namespace pilot {
namespace {

using Kind = host::Event::Kind;
using record::ArgumentList;
using record::Arguments;

class Player
{
public:
    Player(int script, RunState &state, Outcome &outcome, const std::filesystem::path &storeFolder,
           const Subject &subject)
        : script_(script), state_(state), outcome_(outcome), subject_(subject),
          host_(storeFolder, state,
                {[this] { act(); }, [this] { timerHandled(); },
                 [this](const std::string &reason) { fail(1, reason); }})
    {
        for (const std::uint16_t code : state_.held) {
            send(Kind::KeyDown, code);
        }
        if (!state_.traceFile.empty()) {
            openTrace();
        }
        require(host_.film().goOn());
    }

    host::Host &host() { return host_; }

    /// Goes on to the end of the script or the next restart.
    [[noreturn]] void programEnded(int exitCode)
    {
        say("exit " + std::to_string(exitCode));
        host_.programEnded();
        steps_.clear();
        programEnded_ = true;
        for (;;) {
            act();
        }
    }

    // Input ------------------------------------------------------------------------------------

    /// What the user does.
    void input(const host::Event &event)
    {
        if (event.kind == Kind::KeyDown) {
            state_.held.insert(event.key);
        } else if (event.kind == Kind::KeyUp) {
            state_.held.erase(event.key);
        } else if (event.kind == Kind::Turn) {
            state_.orientation = event.orientation;
        }
        host_.send(event);
    }

    void wait(const Arguments &arguments)
    {
        host_.pass(static_cast<std::uint32_t>(arguments.numbers[0]));
    }

    void jump(const Arguments &arguments)
    {
        host_.jump(static_cast<std::uint32_t>(arguments.numbers[0]));
    }

    void press(const Arguments &arguments)
    {
        const auto code = static_cast<std::uint16_t>(arguments.numbers[0]);
        state_.held.erase(code);
        send(Kind::KeyDown, code);
        host_.pass(static_cast<std::uint32_t>(arguments.numbers[1]));
        then([this, code] { send(Kind::KeyUp, code); });
    }

    void chord(const Arguments &arguments)
    {
        const auto code = static_cast<std::uint16_t>(arguments.numbers[0]);
        send(Kind::KeyDown, code, true);
        send(Kind::KeyUp, code);
    }

    void tap(const Arguments &arguments)
    {
        const auto [x, y, none] = arguments.numbers;
        if (x >= host_.frame().width || y >= host_.frame().height) {
            fail(2, "tap: the point is not on the screen");
        }
        tapPoint({x, y});
    }

    void type(const Arguments &arguments)
    {
        for (const char16_t unit : base::toUtf16(arguments.text)) {
            host_.send({.kind = Kind::Text, .text = unit});
        }
    }

    // Taps on what is shown --------------------------------------------------------------------

    void menu(const Arguments &arguments)
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
            const int index = require(inspect::menuBarButtonOf(id),
                                      "menu: no menu holds command " + std::to_string(id));
            open({{index}, {}});
        });
        then([this, id] { tapMenuItem(id); });
    }

    void open(const Arguments &arguments)
    {
        const int index = arguments.numbers[0];
        tapPoint(require(inspect::menuBarButton(index),
                         "open: there is no menu-bar button " + std::to_string(index))
                     .centre);
    }

    /// Taps the left end of the title bar, where nothing else takes a tap.
    void dismiss(const Arguments &) { tapPoint({4, 4}); }

    void click(const Arguments &arguments)
    {
        const int id = arguments.numbers[0];
        const auto control = inspect::control(id);
        tapPoint(require(control && control->enabled ? control : std::nullopt,
                         "click: the active window has no visible, enabled control " +
                             std::to_string(id))
                     .centre);
    }

    void select(const Arguments &arguments)
    {
        const auto [id, index, none] = arguments.numbers;
        click(arguments);
        then([this, id = id, index = index] {
            tapPoint(require(inspect::openListItem(id, index),
                             "select: the list of control " + std::to_string(id) +
                                 " shows no item " + std::to_string(index))
                         .centre);
        });
    }

    void done(const Arguments &)
    {
        tapPoint(require(inspect::okButton(), "done: the title bar has no OK button").centre);
    }

    // The end of the program -------------------------------------------------------------------

    void kill(const Arguments &) { finish(0); }

    void restart(const Arguments &) { outcome_.restart(state_, programEnded_); }

    // Looking ----------------------------------------------------------------------------------

    void shot(const Arguments &arguments)
    {
        require(host::writePng(arguments.text, host_.frame()));
    }

    void state(const Arguments &arguments)
    {
        std::ofstream file(arguments.text, std::ios::binary);
        writeImage(file);
        file.close();
        requireWritten(file, arguments.text);
    }

    void trace(const Arguments &arguments)
    {
        trace_.close();
        trace_.clear();
        state_.traceFile.clear();
        if (arguments.text != "off") {
            state_.traceFile = arguments.text;
            openTrace();
        }
    }

    void film(const Arguments &arguments)
    {
        const bool ends = arguments.text == "off";
        require(ends ? host_.film().end()
                     : host_.film().begin(arguments.text, arguments.numbers[1], host_.frame()));
    }

    void check(const Arguments &) { state_.checks = true; }

    void tree(const Arguments &)
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

    void objects(const Arguments &)
    {
        std::ranges::for_each(inspect::liveObjects(), say);
        std::ranges::for_each(gdi::liveObjects(), say);
    }

    void sounds(const Arguments &)
    {
        for (const Sound &sound : host_.takeSounds()) {
            say("sound " + std::to_string(sound.start) + ' ' + std::to_string(sound.samples) +
                (sound.cut ? " cut" : ""));
        }
    }

    void echo(const Arguments &arguments) { say(arguments.text); }

private:
    // Carrying out -----------------------------------------------------------------------------

    /// The next step of the present command, or the next command. What a step adds comes before
    /// the steps that follow it.
    void act()
    {
        if (steps_.empty()) {
            readCommand();
            return;
        }
        const auto step = std::move(steps_.front());
        steps_.pop_front();
        auto rest = std::exchange(steps_, {});
        step();
        std::ranges::move(rest, std::back_inserter(steps_));
    }

    void then(std::function<void()> step) { steps_.push_back(std::move(step)); }

    void readCommand();

    /// A script that is a record says what the program was like.
    void compare(std::string_view line)
    {
        constexpr std::string_view digest = "# digest ";
        if (line.starts_with(digest) && !differs_ &&
            line.substr(digest.size(), 16) !=
                record::inHex(record::digestOf(subject_, state_.clock)))
        {
            differs_ = true;
            complainOf("the program differs from the record");
        }
    }

    [[noreturn]] void fail(int status, const std::string &reason)
    {
        complainOf(reason);
        finish(status);
    }

    void complainOf(const std::string &reason) const
    {
        complain("line " + std::to_string(state_.line) + ": " + reason);
    }

    [[noreturn]] void finish(int status, bool cleanly = false)
    {
        require(host_.film().end());
        outcome_.finish(status, cleanly);
    }

    void require(const host::Problem &problem)
    {
        if (problem) {
            fail(1, *problem);
        }
    }

    void requireWritten(const std::ostream &file, const std::string &name)
    {
        if (!file) {
            fail(1, host::fileProblem(name));
        }
    }

    /// What a command needs; without it, the command is a mistake.
    template <class T>
    T require(std::optional<T> found, const std::string &mistake)
    {
        if (!found) {
            fail(2, mistake);
        }
        return *found;
    }

    // Parts of commands ------------------------------------------------------------------------

    void send(Kind kind, std::uint16_t key, bool control = false)
    {
        host_.send({.kind = kind, .key = key, .control = control});
    }

    void tapPoint(POINT point)
    {
        const auto [x, y] = point;
        host_.send({.kind = Kind::StylusDown, .x = x, .y = y});
        then([this, x = x, y = y] { host_.send({.kind = Kind::StylusUp, .x = x, .y = y}); });
    }

    void tapMenuItem(int id)
    {
        const auto item =
            require(inspect::openMenuItem(id),
                    "menu: the menu with command " + std::to_string(id) + " did not open");
        if (item.enabled) {
            tapPoint(item.centre);
        } else {
            say("grayed " + std::to_string(id));
            dismiss({});
        }
    }

    /// Appends to a file that was traced to before.
    void openTrace()
    {
        const bool begun = !state_.traced.insert(state_.traceFile).second;
        trace_.open(state_.traceFile, begun ? std::ios::binary | std::ios::app : std::ios::binary);
        requireWritten(trace_, state_.traceFile);
    }

    void writeImage(std::ostream &file)
    {
        file.write(reinterpret_cast<const char *>(subject_.image.data()),
                   static_cast<std::streamsize>(subject_.image.size()));
    }

    void timerHandled()
    {
        if (trace_.is_open()) {
            writeImage(trace_);
        }
        if (const auto fault = state_.checks ? subject_.findFault() : std::nullopt) {
            fail(crashStatus, *fault);
        }
    }

    int script_;
    RunState &state_;
    Outcome &outcome_;
    const Subject &subject_;
    PilotHost host_;
    bool programEnded_ = false;
    bool differs_ = false;                    ///< from the record that the script is
    std::deque<std::function<void()>> steps_; ///< what the present command still has to do
    std::ofstream trace_;
};

using enum record::Argument;

struct Command
{
    std::string_view name;
    void (Player::*carryOut)(const Arguments &);
    ArgumentList arguments;
    bool needsProgram = true;
};

constexpr Command commands[] = {
    {"wait", &Player::wait, {Milliseconds}},
    {"jump", &Player::jump, {Milliseconds}},
    {"press", &Player::press, {KeyCode, OptionalMilliseconds}},
    {"tap", &Player::tap, {Pixel, Pixel}},
    {"type", &Player::type, {Text}},
    {"menu", &Player::menu, {Id}},
    {"open", &Player::open, {Index}},
    {"dismiss", &Player::dismiss, {}},
    {"click", &Player::click, {Id}},
    {"select", &Player::select, {Id, Index}},
    {"done", &Player::done, {}},
    {"chord", &Player::chord, {KeyCode}},
    {"kill", &Player::kill, {}},
    {"restart", &Player::restart, {}, false},
    {"shot", &Player::shot, {File}},
    {"state", &Player::state, {File}},
    {"trace", &Player::trace, {File}},
    {"film", &Player::film, {Word, OptionalRate}, false},
    {"check", &Player::check, {}},
    {"tree", &Player::tree, {}},
    {"objects", &Player::objects, {}},
    {"sounds", &Player::sounds, {}, false},
    {"echo", &Player::echo, {Text}, false},
};

void Player::readCommand()
{
    if (trace_.is_open()) {
        requireWritten(trace_.flush(), state_.traceFile);
    }
    const auto [line, problem] = host::readLine(script_, "the script cannot be read");
    ++state_.line;
    require(problem);
    if (!line) {
        finish(0, programEnded_);
    }
    compare(*line);
    std::string_view rest = *line;
    const std::string name(record::takeWord(rest));
    if (name.empty()) {
        return;
    }
    const record::InputCommand *input = record::findInputCommand(name);
    const auto *command = std::ranges::find(commands, name, &Command::name);
    if (!input && command == std::end(commands)) {
        fail(2, "there is no command \"" + name + '"');
    }
    const auto [arguments, mistake] =
        record::readArguments(rest, input ? input->arguments : command->arguments);
    if (mistake) {
        fail(2, name + ": " + *mistake);
    }
    if (programEnded_ && (input || command->needsProgram)) {
        fail(2, name + ": the program has ended");
    }
    if (input) {
        this->input(input->event(arguments));
    } else {
        (this->*command->carryOut)(arguments);
    }
}

} // namespace

void play(int script, RunState &state, Outcome &outcome, const std::filesystem::path &storeFolder,
          const Subject &subject, const std::function<int(host::Host &)> &runProgram)
{
    Player player(script, state, outcome, storeFolder, subject);
    player.programEnded(runProgram(player.host()));
}

} // namespace pilot
