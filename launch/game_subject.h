// What records need to know of the game.
#pragma once

#include <span>

#include <windows.h>

#include "app/game_app.h"
#include "app/game_log.h"
#include "record/record.h"

/// `games` must outlive it, and notes what is played.
inline record::Subject gameSubject(GameLog &games)
{
    return {std::as_bytes(std::span(&gameApp, 1)),
            [&games] { return games.observe(gameApp, GetTickCount()); }};
}
