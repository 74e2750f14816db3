// Points for cleared rows, the rise of the level, and how the modes differ in both.
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
    score += clearPoints(count); // before the level rises
    if (mode == GameMode::Marathon && lines >= levelTarget(level)) {
        setLevel(level + 1);
    }
    dirty |= dirty::score | dirty::lines;
}

int GameSession::clearPoints(int count)
{
    constexpr std::array points{40, 100, 300, 1200};
    const bool fourAgain = count == 4 && backToBack != 0;
    backToBack = count == 4 ? 1 : 0;
    if (count < 1 || count > 4) {
        return 0;
    }
    return (fourAgain ? 1800 : points[static_cast<std::size_t>(count - 1)]) * (level + 1);
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
    if (level < 10) { // level 9 is the fastest
        gravityMs = 900 - 80 * level;
    }
    const std::int32_t picture = level / 2 % 3;
    if (picture != backdrop) {
        backdrop = picture;
        dirty |= dirty::everything;
    }
}
