// The three streams that a process is started with.
#pragma once

namespace host {

/// To be called before anything is opened. What is closed of the three leads nowhere from now on,
/// so that no other file gets its number, and a line that nobody reads any more is lost without
/// ending the process.
void secureStandardStreams();

} // namespace host
