// Which stored records are accepted, and what happens to those that are not.
#include "app/settings.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/settings_check.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"

namespace {

constexpr LPCWSTR keyPath = u"Software\\Apps\\Orvendel Glimra";
using Bytes = std::vector<BYTE>;

Bytes stored(LPCWSTR name)
{
    HKEY key{};
    DWORD size = 0;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, KEY_ALL_ACCESS, &key);
    RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size);
    Bytes bytes(size);
    RegQueryValueExW(key, name, nullptr, nullptr, bytes.data(), &size);
    RegCloseKey(key);
    return bytes;
}

void store(const Bytes &app)
{
    const DWORD version = 3;
    HKEY key{};
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, nullptr, 0, 0, nullptr, &key, nullptr);
    RegSetValueExW(key, u"app", 0, REG_BINARY, app.data(), static_cast<DWORD>(app.size()));
    RegSetValueExW(key, u"version", 0, REG_DWORD, reinterpret_cast<const BYTE *>(&version), 4);
    RegCloseKey(key);
}

Bytes imageOf(const AppRecord &app)
{
    const auto *bytes = reinterpret_cast<const BYTE *>(&app);
    return {bytes, bytes + sizeof app};
}

/// A record that is accepted.
AppRecord goodApp()
{
    AppRecord app;
    for (std::size_t i = 0; i < app.highScores.size(); ++i) {
        app.highScores[i].mode = static_cast<std::int32_t>(i);
    }
    return app;
}

/// A field, or words of the problem with it, and what puts a value into it.
using Change = std::pair<const char *, void (*)(AppRecord &)>;
#define SET(field, value) Change(#field, [](AppRecord &app) { app.field = value; })

Bytes changed(const Change &change)
{
    AppRecord app = goodApp();
    change.second(app);
    return imageOf(app);
}

/// What is said when a stored record is refused, and kept under another name; "" if it is accepted.
std::string refusal(const Bytes &block)
{
    const SwitchedOn handheld(programResources());
    store(block);
    AppRecord app;
    const Bytes before = imageOf(app);
    testing::internal::CaptureStderr();
    const bool taken = loadSettings(app);
    EXPECT_EQ(imageOf(app), taken ? block : before);
    EXPECT_EQ(stored(u"app.rejected"), taken ? Bytes{} : block);
    EXPECT_TRUE(saveSettings(goodApp())); // replaces it
    EXPECT_TRUE(loadSettings(app));
    return testing::internal::GetCapturedStderr();
}

TEST(Settings, RefuseWhatTheGameCannotWorkWith)
{
    const Change changes[] = {
        SET(session.state, GameState{4}),
        SET(session.playfield.cells[193], (Cell{1, 7})),
        SET(session.playfield.piece.queue.entries[0], TetrominoType{7}),
        SET(highScores[0].mode, 1),
        {"piece is outside", [](AppRecord &app) { app.session.playfield.piece.x = 8; }},
        {"piece is outside", [](AppRecord &app) { app.session.playfield.piece.y = 19; }},
        {"entries[0].name", [](AppRecord &app) { app.highScores[0].entries[0].name.fill(u'x'); }},
    };
    for (const Change &change : changes) {
        const std::string said = refusal(changed(change));
        EXPECT_NE(said.find(change.first), std::string::npos) << change.first << ": " << said;
        EXPECT_EQ(std::ranges::count(said, '\n'), 1) << change.first;
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
    EXPECT_EQ(refusal(changed({"all",
                               [](AppRecord &app) {
                                   app.appState = AppState{77};
                                   app.session.playfield.cells[0] = {0, 99};
                                   app.session.gravityMs = 0;
                                   app.session.holdEnabled = 2;
                                   app.input.slots[0].keyCode = 0xFFFFFFFF;
                                   app.titleScreen.page = TitlePage{99};
                               }})),
              "");
}

} // namespace
