// Looks at the record from outside: what has changed since the last look says what has happened.
#include "app/game_log.h"

#include <algorithm>
#include <cstdio>

namespace {

std::int32_t rowsOf(const GameSession &session)
{
    return session.mode == GameMode::FortyLines ? 40 - session.lines : session.lines;
}

const HighScoreTable &tableOf(const AppRecord &app)
{
    return app.highScores[static_cast<std::size_t>(app.session.mode)];
}

std::string minutes(std::uint32_t milliseconds)
{
    char text[24];
    std::snprintf(text, sizeof text, "%u:%02u", static_cast<unsigned>(milliseconds / 60000),
                  static_cast<unsigned>(milliseconds / 1000 % 60));
    return text;
}

} // namespace

std::optional<std::string> GameLog::observe(const AppRecord &app, std::uint32_t clock)
{
    if (app.appState == AppState::None) {
        return std::nullopt; // not yet, or not any more
    }
    const Stage now = situationOf(app).stage;
    auto chapter = change(app, now);
    if (!games_.empty() && now != Stage::Title) {
        follow(app, clock);
    }
    stage_ = now;
    clock_ = clock;
    return chapter;
}

std::optional<std::string> GameLog::change(const AppRecord &app, Stage now)
{
    const Stage before = stage_.value_or(Stage::Title);
    if (now == Stage::Title && before == Stage::Over) {
        noteName(app);
    } else if (now == Stage::Title && before != Stage::Title) {
        games_.back().abandoned = true;
        return "abandoned " + result(games_.back());
    } else if (now == Stage::Over && before != Stage::Title && before != Stage::Over) {
        Game &game = games_.back();
        game.points = app.session.score;
        game.rows = rowsOf(app.session);
        game.level = app.session.level;
        game.over = true;
        table_ = tableOf(app);
        return "over " + result(game);
    } else if (now != Stage::Title &&
               (before == Stage::Title || app.session.score < games_.back().points))
    {
        return begin(app);
    }
    return std::nullopt;
}

std::string GameLog::begin(const AppRecord &app)
{
    Game &game = games_.emplace_back();
    game.mode = app.session.mode;
    game.startLevel = app.session.startLevel;
    game.points = app.session.score;
    game.rows = rowsOf(app.session);
    game.level = app.session.level;
    game.fromStore = !stage_;
    game.over = situationOf(app).stage == Stage::Over;
    table_ = tableOf(app);
    return game.fromStore
               ? "came back " + result(game)
               : std::string("game ") + nameOf(game.mode) + " level " + std::to_string(game.level);
}

void GameLog::follow(const AppRecord &app, std::uint32_t clock)
{
    Game &game = games_.back();
    game.points = app.session.score;
    game.rows = rowsOf(app.session);
    game.level = app.session.level;
    game.played += stage_ == Stage::Playing ? clock - clock_ : 0;
}

void GameLog::noteName(const AppRecord &app)
{
    const auto &entries = tableOf(app).entries;
    const auto changed =
        std::mismatch(entries.begin(), entries.end(), table_.entries.begin()).first;
    if (changed != entries.end()) {
        games_.back().name = changed->name.data();
    }
}

std::string GameLog::result(const Game &game)
{
    return std::string(nameOf(game.mode)) + ' ' + std::to_string(game.points) + " points " +
           std::to_string(game.rows) + " rows level " + std::to_string(game.level);
}

std::vector<std::u16string> GameLog::account() const
{
    std::vector<std::u16string> lines;
    for (const Game &game : games_) {
        const std::string figures =
            std::string(nameOf(game.mode)) + " from level " + std::to_string(game.startLevel) +
            ": " + std::to_string(game.points) + " points, " + std::to_string(game.rows) +
            " rows, level " + std::to_string(game.level) + ", " + minutes(game.played);
        std::u16string line(figures.begin(), figures.end());
        line += game.name.empty() ? u"" : u", named " + game.name;
        line += game.abandoned ? u", abandoned" : game.over ? u"" : u", not over";
        line += game.fromStore ? u", begun before this record" : u"";
        lines.push_back(line);
    }
    return lines;
}
