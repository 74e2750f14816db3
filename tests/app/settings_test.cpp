// Which stored records are accepted, and what happens to those that are not.
#include "app/settings.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

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
        SET(session.cellWidth, 12),
        SET(session.boardLeft, 0),
        SET(session.state, GameState{4}),
        SET(session.state, GameState{-1}),
        SET(session.playfield.cells[193], (Cell{1, 7})),
        SET(session.playfield.piece.prevX, 5000),
        SET(session.playfield.piece.prevRotation, 4),
        SET(session.playfield.piece.type, TetrominoType{7}),
        SET(session.playfield.piece.rotation, -1),
        SET(session.playfield.piece.queue.count, 17),
        SET(session.playfield.piece.queue.entries[0], TetrominoType{7}),
        SET(session.holdType, 7),
        SET(session.holdType, -2),
        SET(session.phase, Phase{3}),
        SET(session.backdrop, 3),
        SET(session.level, -1),
        SET(session.score, 2000000000),
        SET(session.mode, GameMode{6}),
        SET(session.startLevel, 10),
        SET(session.queueLength, 7),
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

TEST(Settings, AcceptWhatIsOddButPlayable)
{
    const Change changes[] = {
        SET(appState, AppState{77}),
        SET(requestedState, AppState{9}),
        SET(session.playfield.piece.y, -3),
        SET(session.playfield.cells[0], (Cell{0, 99})),
        SET(session.now, -5),
        SET(session.gravityMs, 0),
        SET(session.dirty, 0xFFFFFFFF),
        SET(session.mode, GameMode{5}),
        SET(session.queueLength, 3),
        SET(session.holdEnabled, 2),
        SET(input.slots[0].keyCode, 0xFFFFFFFF),
        SET(titleScreen.page, TitlePage{99}),
    };
    for (const Change &change : changes) {
        EXPECT_EQ(refusal(changed(change)), "") << change.first;
    }
}

} // namespace
