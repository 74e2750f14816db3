// Runs the program in processes of their own, forked from one in which it never ran. So a restarted
// program finds its static objects as a fresh process does, and a crash is noticed.
#pragma once

#include <functional>

#include "host/descriptor.h"
#include "host/pilot/run_state.h"

namespace pilot {

/// How a run reports its outcome to the parent; reporting ends the process.
class Outcome
{
public:
    /// The parent reads what is written to `pipe`.
    explicit Outcome(host::Descriptor pipe) : pipe_(std::move(pipe)) {}

    /// What is called before the process ends by one of the next two.
    void setAtEnd(std::function<void()> act) { atEnd_ = std::move(act); }
    /// Another run begins in that state. `cleanly`: static objects are destroyed, for a program
    /// that ended by itself; else the process ends where it is.
    [[noreturn]] void restart(const RunState &state, bool cleanly) const;
    /// The pilot ends with the exit status `status`.
    [[noreturn]] void finish(int status, bool cleanly = false) const;

private:
    [[noreturn]] void report(const std::string &text, bool cleanly) const;

    host::Descriptor pipe_;
    std::function<void()> atEnd_;
};

/// The exit status when the program crashed.
constexpr int crashStatus = 3;
/// Added to the signal, when SIGHUP, SIGINT or SIGTERM ended the pilot.
constexpr int endedStatus = 128;

/// Calls `run` in a process of its own, first with `state`, then after each restart with the state
/// that was reported. `run` must not return. Returns the pilot's exit status; a crash is reported
/// on the standard error stream.
int runUntilFinished(RunState state, const std::function<void(RunState &, Outcome &)> &run);

} // namespace pilot
