// What the program keeps: the game, the choices, the tables. Its memory image is what the settings
// store, 2,496 bytes, so its layout is fixed.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "engine/game_session.h"
#include "frontend/high_score_table.h"
#include "frontend/title_screen.h"
#include "input/input_state.h"

enum class AppState : std::int32_t
{
    None = 0,     ///< before the first transition
    Title = 1,    ///< the title screen is live
    Starting = 2, ///< a new game is being set up; never outlasts a tick
    Playing = 3,  ///< a game exists and the play screen is live
};

struct AppRecord
{
    AppState appState = AppState::None;       ///< the state whose screen is live
    AppState requestedState = AppState::None; ///< the next tick enters it
    GameSession session;                      ///< the game, and the choices that outlive it
    InputState input;
    TitleScreen titleScreen{};
    std::array<HighScoreTable, 6> highScores{}; ///< by mode; the last two are not shown
};

static_assert(std::endian::native == std::endian::little,
              "Stored records and resources have the low byte first, and are used as they are.");
static_assert(sizeof(AppRecord) == 2496);
static_assert(std::is_trivially_copyable_v<AppRecord>);
static_assert(offsetof(AppRecord, session) == 8);
static_assert(offsetof(AppRecord, input) == 660);
static_assert(offsetof(AppRecord, titleScreen) == 724);
static_assert(offsetof(AppRecord, highScores) == 744);
