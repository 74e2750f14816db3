// Keeps the game of a session that did not end as it should: plays its record to the end, unseen,
// and closes the program there, which stores the game.
#pragma once

#include <string>

#include "handheld.h"
#include "host/host.h"
#include "record/playback.h"

/// The store as it would be if the recorded session had been closed at its end. A problem when the
/// record does not play, or does not lead to the `present` store. The program can run only once in
/// a process, and does so here.
host::Result<std::string> playToEnd(const record::Record &record,
                                    const record::Playback::Store &present,
                                    const handheld::Program &program);

/// Makes that the host's store; false when that failed. When there was a problem nothing changes:
/// the host reports it, and the game goes on from what was stored last.
bool keepEnd(host::Host &host, const host::Result<std::string> &end);
