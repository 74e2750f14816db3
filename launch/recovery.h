// Keeps the game of a session that did not end as it should: plays its record to the end, unseen,
// and closes the program there, which stores the game.
#pragma once

#include <filesystem>

#include "handheld.h"
#include "host/host.h"
#include "launch/session_records.h"

/// The store in `storeFolder` becomes what it would be if the session that was stopped had been
/// closed at its end. Nothing changes when its record does not lead to the present store, or does
/// not play: `host` then reports why, and the game goes on from what was stored last. Afterwards
/// the records are finished, unless something failed that may work the next time.
void recover(host::Host &host, const std::filesystem::path &storeFolder,
             const SessionRecords &records, const handheld::Program &program);
