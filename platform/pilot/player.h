// Carries out a script on the virtual handheld, one command at a time, each when the program has
// nothing left to do and sleeps.
#pragma once

#include <deque>
#include <fstream>
#include <functional>
#include <string>

#include "host/pilot/pilot_host.h"
#include "pilot/run_process.h"
#include "pilot/script.h"
#include "pilot/subject.h"
#include "windef.h"

namespace pilot {

class Player
{
public:
    /// Plays from the file descriptor `script`. Everything must outlive the player.
    Player(int script, RunState &state, const Outcome &outcome,
           const std::filesystem::path &storeFolder, const Subject &subject);

    host::Host &host() { return host_; }
    /// Goes on when the program has ended by itself: to the end of the script or its next restart.
    [[noreturn]] void programEnded(int exitCode);

private:
    struct Command;

    void act();
    void readCommand();
    void then(std::function<void()> step) { steps_.push_back(std::move(step)); }
    [[noreturn]] void fail(int status, const std::string &reason);
    void require(const host::Problem &problem);
    void requireWritten(const std::ostream &file, const std::string &name);
    /// What was found; without it the command, its name before the reason, is a mistake.
    template <class T>
    T require(std::optional<T> found, const std::string &reason);

    void openTrace();
    void writeImage(std::ostream &file);
    void timerHandled();

    void send(host::Event::Kind kind, std::uint16_t key = 0, int modifiers = 0);
    void sendText(std::u16string_view text);
    void tapPoint(POINT point);
    void tapMenuItem(int id);

    // The commands.
    template <host::Event::Kind kind>
    void systemEvent(const Arguments &)
    {
        send(kind);
    }
    void wait(const Arguments &arguments);
    void jump(const Arguments &arguments);
    void key(const Arguments &arguments);
    void press(const Arguments &arguments);
    void tap(const Arguments &arguments);
    void stylus(const Arguments &arguments);
    void type(const Arguments &arguments);
    void text(const Arguments &arguments);
    void menu(const Arguments &arguments);
    void open(const Arguments &arguments);
    void dismiss(const Arguments &arguments);
    void click(const Arguments &arguments);
    void select(const Arguments &arguments);
    void done(const Arguments &arguments);
    void chord(const Arguments &arguments);
    void turn(const Arguments &arguments);
    void kill(const Arguments &arguments);
    void restart(const Arguments &arguments);
    void shot(const Arguments &arguments);
    void state(const Arguments &arguments);
    void trace(const Arguments &arguments);
    void check(const Arguments &arguments);
    void tree(const Arguments &arguments);
    void objects(const Arguments &arguments);
    void sounds(const Arguments &arguments);
    void echo(const Arguments &arguments);

    int script_;
    RunState &state_;
    const Outcome &outcome_;
    const Subject &subject_;
    PilotHost host_;
    bool programEnded_ = false;
    std::deque<std::function<void()>> steps_; ///< of the present command, what is still to do
    std::ofstream trace_;
};

} // namespace pilot
