// Carries out a script on the virtual handheld, one command at a time, each when the program has
// nothing left to do and sleeps.
#pragma once

#include <filesystem>
#include <functional>

#include "host/host.h"
#include "pilot/run_process.h"
#include "pilot/subject.h"

namespace pilot {

/// Has `runProgram` run the program on a host that plays the file descriptor `script`; it returns
/// the program's exit code. A program that ends by itself does not end the script.
[[noreturn]] void play(int script, RunState &state, Outcome &outcome,
                       const std::filesystem::path &storeFolder, const Subject &subject,
                       const std::function<int(host::Host &)> &runProgram);

} // namespace pilot
