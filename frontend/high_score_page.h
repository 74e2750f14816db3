// The page that shows one high-score table over the title background.
#pragma once

#include <windows.h>

#include "frontend/high_score_table.h"

/// Draws the page into `target`; the background is copied from `source`, where it is selected for
/// that long. Returns true.
bool drawHighScorePage(const HighScoreTable &table, HDC source, HDC target);
