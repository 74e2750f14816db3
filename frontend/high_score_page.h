// The page that shows one high-score table over the title background.
#pragma once

#include <windows.h>

#include "frontend/high_score_table.h"

/// Draws the page into `target`, which holds the 240 by 268 bitmap that receives it; the
/// background is selected into `source` meanwhile.
void drawHighScorePage(const HighScoreTable &table, HDC source, HDC target);
