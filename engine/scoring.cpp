// What cleared rows are worth, when the level rises, and how the modes differ.
#include "engine/game_session.h"

void GameSession::rowsCleared(int count)
{
    if (mode == GameMode::FortyLines) {
        lines -= count;
        if (lines < 1) {
            lines = 0;
            decideGame();
        }
    } else {
        lines += count;
    }
    score += clearPoints(count); // at the level before it rises
    if (mode == GameMode::Marathon && lines >= levelTarget(level)) {
        setLevel(level + 1);
    }
    dirty |= dirty::score | dirty::lines;
}

int GameSession::clearPoints(int count)
{
    const bool afterFour = backToBack != 0;
    backToBack = count == 4 ? 1 : 0;
    switch (count) {
    case 1:
        return 40 * (level + 1);
    case 2:
        return 100 * (level + 1);
    case 3:
        return 300 * (level + 1);
    case 4:
        return (afterFour ? 1800 : 1200) * (level + 1);
    default:
        return 0;
    }
}

int GameSession::levelTarget(int ofLevel) const
{
    if (startLevel > ofLevel) {
        return 0;
    }
    // Level k lasts 10 * (k + 1) rows; summed from the start level to this one.
    return 5 * ((ofLevel + 1) * (ofLevel + 2) - startLevel * (startLevel + 1));
}

void GameSession::setLevel(int newLevel)
{
    level = newLevel;
    dirty |= dirty::level;
    if (level < 10) { // faster than level 9 it never gets
        gravityMs = 900 - 80 * level;
    }
    const std::int32_t picture = level / 2 % 3;
    if (picture != backdrop) {
        backdrop = picture;
        dirty |= dirty::everything;
    }
}
