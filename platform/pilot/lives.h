// The lives of the program in one run of the pilot. Each is a process of its own, forked from one
// in which the program never ran: so a program that is started anew finds its static objects as a
// fresh process does, and one that crashes is noticed.
#pragma once

#include <functional>
#include <string>

#include "host/pilot/world.h"

namespace pilot {

/// What a life leaves behind, told by the life itself. Its end is the end of its process.
class Will
{
public:
    /// `pipe`: where the parent reads.
    explicit Will(int pipe) : pipe_(pipe) {}

    /// Ends this life on the spot; another one begins in the world as it is. When the program had
    /// ended by itself, the process is run down in order.
    [[noreturn]] void restart(const World &world, bool inOrder) const;
    /// Ends this life on the spot and with it the run, whose exit status is `status`.
    [[noreturn]] void finish(int status) const;
    /// The same for a program that ended by itself, so the process is run down in order.
    [[noreturn]] void finishInOrder(int status) const;

private:
    void leave(const std::string &text) const;

    int pipe_;
};

/// The exit status of a run whose program crashed.
constexpr int crashStatus = 3;
/// The exit status of a run that SIGHUP, SIGINT or SIGTERM ended, less that signal.
constexpr int endedStatus = 128;

/// Begins lives, the first one in `world`, until one finishes. `live` does not return. Returns the
/// exit status of the run; a crash is told on the standard error stream.
int runLives(World world, const std::function<void(World &, const Will &)> &live);

} // namespace pilot
