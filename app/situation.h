// What the program is doing, in a few words: for players who do not see the screen, and for whoever
// must know whether a game is running.
#pragma once

#include <string>

#include "app/app_record.h"

enum class Stage
{
    Title,
    Playing,
    Paused,
    Over, ///< its end is decided; perhaps a name is asked for
};

struct Situation
{
    Stage stage = Stage::Title;
    GameMode mode = GameMode::Marathon;
    std::int32_t level = 0;
    std::int32_t score = 0; ///< of a game that is over; else 0

    friend bool operator==(const Situation &, const Situation &) = default;
};

/// "Marathon", "40 Lines", ...; "A game" for a mode without a name.
const char *nameOf(GameMode mode);

Situation situationOf(const AppRecord &app);

/// A sentence for the change from one situation to another, in UTF-8: "Marathon, level 3."
std::string describeChange(const Situation &before, const Situation &now);
