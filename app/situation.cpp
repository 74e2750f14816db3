// From the record to words.
#include "app/situation.h"

#include <array>

namespace {

Stage stageOf(const AppRecord &app)
{
    if (app.appState != AppState::Playing) {
        return Stage::Title;
    }
    switch (app.session.state) {
    case GameState::Running:
        return Stage::Playing;
    case GameState::Paused:
        return Stage::Paused;
    default:
        return Stage::Over;
    }
}

} // namespace

const char *nameOf(GameMode mode)
{
    constexpr std::array names = {"Marathon", "40 Lines", "Ultra, 2 minutes", "Ultra, 3 minutes"};
    const auto index = static_cast<std::size_t>(mode);
    return index < names.size() ? names[index] : "A game";
}

Situation situationOf(const AppRecord &app)
{
    Situation situation;
    situation.stage = stageOf(app);
    if (situation.stage != Stage::Title) {
        situation.mode = app.session.mode;
        situation.level = app.session.level;
    }
    if (situation.stage == Stage::Over) {
        situation.score = app.session.score;
    }
    return situation;
}

std::string describeChange(const Situation &before, const Situation &now)
{
    const std::string level = "level " + std::to_string(now.level);
    switch (now.stage) {
    case Stage::Title:
        return "Title page.";
    case Stage::Playing:
        return before.stage == Stage::Playing ? "L" + level.substr(1) + '.'
                                              : std::string(nameOf(now.mode)) + ", " + level + '.';
    case Stage::Paused:
        return "Paused.";
    case Stage::Over:
        break;
    }
    return "Game over: " + std::to_string(now.score) + " points.";
}
