// The page that shows one high-score table over the title background.
#pragma once

#include <windows.h>

#include "frontend/high_score_table.h"

/// Draws the page into `target`, which holds a bitmap of 240 by 268; the background is selected
/// into `source` meanwhile. Returns true.
bool drawHighScorePage(const HighScoreTable &table, HDC source, HDC target);
