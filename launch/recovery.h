// Keeps the game of a session whose record is not finished, in a process of its own.
#pragma once

#include <filesystem>

#include "handheld.h"
#include "host/host.h"

/// The store becomes what it would be if the recorded session had been closed at its end. Nothing
/// changes when the record does not lead to the present store, or does not play: `host` then
/// reports why, and the game goes on from what was stored last.
void recover(host::Host &host, const std::filesystem::path &file, const handheld::Program &program);
