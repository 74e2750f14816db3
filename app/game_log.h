// What was played in a session, game by game: the chapters of a record, and an account of
// what was played.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/situation.h"

class GameLog
{
public:
    /// To be called whenever the program has done all there is to do. `clock`: the tick count,
    /// milliseconds. Returns what has begun since the last call, in UTF-8: "game Marathon level 3",
    /// "over Marathon 12345 points 57 rows level 5", "abandoned ..." likewise, "came back ..." for
    /// a game from the store; none when that is nothing.
    std::optional<std::string> observe(const AppRecord &app, std::uint32_t clock);

    /// A line for each game: "Marathon from level 3: 12345 points, 57 rows, level 5, 6:12,
    /// named Aurora". The time is that in which the game ran.
    std::vector<std::u16string> account() const;

private:
    struct Game
    {
        GameMode mode{};
        std::int32_t startLevel = 0;
        std::int32_t points = 0;
        std::int32_t rows = 0;
        std::int32_t level = 0;
        std::uint32_t played = 0; ///< milliseconds
        bool fromStore = false;
        bool over = false;
        bool abandoned = false;
        std::u16string name; ///< in the table of high scores; empty: none
    };

    std::optional<std::string> change(const AppRecord &app, Stage now);
    std::string begin(const AppRecord &app);
    void follow(const AppRecord &app, std::uint32_t clock);
    void noteName(const AppRecord &app);
    static std::string result(const Game &game);

    std::vector<Game> games_;
    HighScoreTable table_{}; ///< of the present game's mode, before its end
    std::optional<Stage> stage_;
    std::uint32_t clock_ = 0;
};
