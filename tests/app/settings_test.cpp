// Which stored records are accepted.
#include "app/settings_check.h"

#include <string>

#include <gtest/gtest.h>

namespace {

/// A record that is accepted.
AppRecord goodApp()
{
    AppRecord app;
    for (std::size_t i = 0; i < app.highScores.size(); ++i) {
        app.highScores[i].mode = static_cast<std::int32_t>(i);
    }
    return app;
}

TEST(Settings, RefuseWhatTheGameCannotWorkWith)
{
    const std::pair<const char *, void (*)(AppRecord &)> changes[] = {
        {"session.playfield.cells[193]",
         [](AppRecord &app) {
             app.session.playfield.cells[193] = {1, 7};
         }},
        {"piece is outside", [](AppRecord &app) { app.session.playfield.piece.x = 8; }},
        {"piece is outside", [](AppRecord &app) { app.session.playfield.piece.y = 19; }},
        {"entries[0].name", [](AppRecord &app) { app.highScores[0].entries[0].name.fill(u'x'); }},
    };
    for (const auto &[words, change] : changes) {
        AppRecord app = goodApp();
        change(app);
        const std::string fault = findFault(app).value_or("");
        EXPECT_NE(fault.find(words), std::string::npos) << words << ": " << fault;
    }
}

template <class Field>
void put(Field &field, std::int32_t value)
{
    field = static_cast<Field>(value);
}

/// A field, its lowest and highest value, and what puts a value into it.
using Limit =
    std::tuple<const char *, std::int32_t, std::int32_t, void (*)(AppRecord &, std::int32_t)>;
#define LIMIT(field, lowest, highest) \
    Limit(#field, lowest, highest,    \
          [](AppRecord &app, std::int32_t value) { put(app.field, value); })

TEST(Settings, AreTakenUpToTheLimitOfEachField)
{
    const Limit limits[] = {
        LIMIT(session.cellWidth, 11, 11),
        LIMIT(session.cellHeight, 11, 11),
        LIMIT(session.boardLeft, 22, 22),
        LIMIT(session.boardTop, 11, 11),
        LIMIT(session.state, 0, 3),
        LIMIT(session.playfield.piece.x, -999, 999),
        LIMIT(session.playfield.piece.y, -999, 999),
        LIMIT(session.playfield.piece.prevX, -999, 999),
        LIMIT(session.playfield.piece.prevY, -999, 999),
        LIMIT(session.playfield.piece.prevRotation, 0, 3),
        LIMIT(session.playfield.piece.type, 0, 6),
        LIMIT(session.playfield.piece.rotation, 0, 3),
        LIMIT(session.playfield.piece.ghostX, -999, 999),
        LIMIT(session.playfield.piece.ghostY, -999, 999),
        LIMIT(session.playfield.piece.prevGhostX, -999, 999),
        LIMIT(session.playfield.piece.prevGhostY, -999, 999),
        LIMIT(session.playfield.piece.queue.count, 0, 16),
        LIMIT(session.playfield.piece.queue.entries[0], 0, 6),
        LIMIT(session.playfield.cells[9].colour, 0, 6),
        LIMIT(session.holdType, -1, 6),
        LIMIT(session.phase, 0, 2),
        LIMIT(session.backdrop, 0, 2),
        LIMIT(session.lines, -1'000'000'000, 1'000'000'000),
        LIMIT(session.level, 0, 9'999),
        LIMIT(session.score, -1'000'000'000, 1'000'000'000),
        LIMIT(session.timeLeft, -1'000'000'000, 1'000'000'000),
        LIMIT(session.mode, 0, 5),
        LIMIT(session.startLevel, 0, 9),
        LIMIT(session.queueLength, 0, 6),
        LIMIT(highScores[5].mode, 5, 5),
    };
    for (const auto &[field, lowest, highest, set] : limits) {
        for (const auto &[value, refused] :
             {std::pair(lowest - 1, true), {lowest, false}, {highest, false}, {highest + 1, true}})
        {
            AppRecord app = goodApp();
            app.session.playfield.cells[9].occupied = 1;
            set(app, value);
            const std::string fault = findFault(app).value_or("");
            EXPECT_EQ(fault.starts_with(std::string(field) + " is "), refused)
                << field << ": " << value << ", " << fault;
        }
    }
}

TEST(Settings, AcceptWhatIsOddButPlayable)
{
    AppRecord app = goodApp();
    app.appState = AppState{77};
    app.requestedState = AppState{9};
    app.session.playfield.cells[0] = {0, 99};
    app.session.now = -5;
    app.session.gravityMs = 0;
    app.session.dirty = 0xFFFFFFFF;
    app.session.holdEnabled = 2;
    app.input.slots[0].keyCode = 0xFFFFFFFF;
    app.titleScreen.page = TitlePage{99};
    EXPECT_EQ(findFault(app), std::nullopt);
}

} // namespace
