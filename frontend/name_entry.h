// Asks for the name of a new high score.
#pragma once

#include <cstdint>

#include <windows.h>

#include "frontend/high_score_table.h"

/// When the score enters the table, asks the player for a name and inserts the result; without a
/// name the table stays as it is. Returns true once the dialog has closed.
bool enterHighScore(HighScoreTable &table, HWND parent, std::int32_t score, std::int32_t lines,
                    std::int32_t level);
