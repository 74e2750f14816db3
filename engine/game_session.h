// One game: the well, its clocks, the score and the player's options. Every tick says which parts
// of the screen to redraw and which sound to play.
//
// A window timer of 25 ms drives it. The rules are in game_session.cpp (the tick and its order of
// steps), actions.cpp (what the buttons do) and scoring.cpp (points, lines, levels, modes); the
// drawing is in render/. The record is stored byte for byte with the settings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include <windows.h>

#include "engine/playfield.h"
#include "engine/timing.h"
#include "input/input_state.h"

/// Parts of the play screen to redraw, a set of bits.
namespace dirty {
constexpr std::uint32_t well = 1;
constexpr std::uint32_t queue = 2;
constexpr std::uint32_t score = 4;
constexpr std::uint32_t level = 8;
constexpr std::uint32_t lines = 16;
constexpr std::uint32_t movedPiece = 32;
constexpr std::uint32_t clearAnimation = 64;
constexpr std::uint32_t time = 128;
constexpr std::uint32_t hold = 256;
/// The backdrop too: it is redrawn only when every bit is set.
constexpr std::uint32_t everything = 511;
} // namespace dirty

/// The sound of a tick, also the SoundPlayer's slot. The last one set in a tick counts.
enum class SoundEvent : std::int32_t
{
    None = -1,
    Rotate = 0,
    Lock = 1, ///< also when the next piece does not fit
    RowsComplete = 2,
    LevelUp = 3,
    Shift = 4,
};

enum class GameState : std::int32_t
{
    Running = 0,
    Paused = 1,
    Ending = 2, ///< decided; the end message shows for 3 seconds
    Over = 3,   ///< the controller takes over
};

enum class Phase : std::int32_t
{
    Falling = 0,
    Landed = 1,   ///< the lock delay runs
    Clearing = 2, ///< complete rows are flagged and shown for 200 ms before they are removed
};

enum class GameMode : std::int32_t
{
    Marathon = 0,
    FortyLines = 1,
    Ultra2Min = 2,
    Ultra3Min = 3,
};

struct GameSession
{
    HDC tileDC{};                 ///< source of every blit of the play screen; not kept
    HDC backDC{};                 ///< the play screen is composed here; not kept
    std::int32_t cellWidth = 11;  ///< pixels
    std::int32_t cellHeight = 11; ///< pixels
    std::int32_t boardLeft = 22;  ///< pixels
    std::int32_t boardTop = 11;   ///< pixels
    GameState state = GameState::Running;
    Playfield playfield;
    std::int32_t holdType = 0; ///< the TetrominoType in the hold box, -1 for none
    Phase phase = Phase::Falling;
    std::int32_t now = 0; ///< moment of the current tick
    /// The moment of the next timed event: gravity step, lock, end of the clear, end of the ending.
    std::int32_t deadline = 0;
    std::int32_t clearFrame = 0;     ///< look of the rows being cleared, 0 to 4
    std::int32_t shiftNext = 0;      ///< moment of the earliest next shift; 0 for no wait
    std::uint8_t shiftRepeating = 0; ///< 1 after the first shift of a held button
    std::array<std::uint8_t, 3> padding1{};
    std::int32_t softDropNext = 0; ///< moment of the earliest next soft-drop step; 0 for no wait
    std::int32_t gravityMs = 0;
    std::int32_t lockDelayMs = 0;
    std::int32_t backdrop = 0; ///< picture 0 to 2
    std::int32_t lines = 0;    ///< rows cleared; in 40 Lines the rows still to clear
    std::int32_t level = 0;
    std::int32_t score = 0;
    std::int32_t timeLeft = 0; ///< Ultra modes: 25 ms ticks
    std::uint32_t dirty = 0;
    SoundEvent soundEvent = SoundEvent::None;
    GameMode mode = GameMode::Marathon; ///< 0 to 5; the title screen offers 0 to 3
    std::int32_t startLevel = 0;        ///< 0 to 9
    std::int32_t queueLength = 6;       ///< next pieces shown: 0, 1 or 6
    std::uint8_t holdEnabled = 1;
    std::uint8_t ghostEnabled = 1;
    std::uint8_t soundEnabled = 1;
    std::uint8_t backToBack = 0; ///< the last clear was of four rows
    std::uint8_t reserved = 0;
    std::array<std::uint8_t, 3> padding2{};

    // The controller's calls. `window` owns the timer.

    /// Makes the bitmaps, font and device contexts of the play screen. Always succeeds (returns 1):
    /// what cannot be made stays empty.
    int create(HWND window);
    int destroy(HWND window);
    /// Starts a game with the mode, start level and options as they are.
    void newGame(HWND window);
    void pause();
    void resume(HWND window);
    void stop(HWND window);
    /// For a stored game in its ending: it ends within 3 seconds, whatever the tick count was when
    /// it was stored.
    void continueEnding(HWND window);
    /// Reads the buttons, applies the rules, paints what changed.
    void tick(HWND window, InputState &input);
    /// Redraws what is dirty and copies the play screen to `target`, or to the window's own device
    /// context when that is none. Returns 1.
    int paint(HWND window, HDC target);
    /// The moment before which no tick changes what is seen or heard, as long as no button goes
    /// down; none when that is for ever.
    std::optional<std::int32_t> nextChange(const InputState &input) const;

    // The rules.

    void update(const InputState &input);
    void setLevel(int newLevel);
    bool stepDown();
    void updateGhost();
    /// Milliseconds from a moment to this tick, negative when the moment is still to come.
    std::int32_t since(std::int32_t moment) const { return timing::between(moment, now); }
    /// The moment that many milliseconds after this tick.
    std::int32_t after(std::int32_t milliseconds) const { return timing::after(now, milliseconds); }
    bool reached(std::int32_t moment) const { return since(moment) >= 0; }

    // The player's actions. Each returns whether the piece moved or turned.

    bool softDropStep();
    bool hardDrop();
    bool hold();
    bool shiftLeft() { return shift(-1); }
    bool shiftRight() { return shift(+1); }
    bool rotateRight();
    bool rotateLeft();

    // Scoring.

    void rowsCleared(int count);
    /// The points of a clear; keeps in `backToBack` whether it was of four rows.
    int clearPoints(int count);
    /// The total of rows in this game at which a level ends.
    int levelTarget(int ofLevel) const;

    bool isUltra() const { return mode == GameMode::Ultra2Min || mode == GameMode::Ultra3Min; }

private:
    void handlePauseButton(HWND window, const InputState &input);
    bool lockLandedPiece();
    bool finishClear();
    bool spawnPiece();
    bool applyActions(const InputState &input);
    void testLanding();
    bool stepUltraClock();
    void rememberDrawnPiece();
    bool shift(int dx);
    bool turn(int targetRotation, const RotationState &kicksOf, int direction);
    bool waitOver(std::int32_t until) const { return until == 0 || reached(until); }
    void restartTiming();
    void decideGame();
};

static_assert(sizeof(GameSession) == 652);
static_assert(offsetof(GameSession, state) == 24);
static_assert(offsetof(GameSession, playfield) == 28);
static_assert(offsetof(GameSession, holdType) == 564);
static_assert(offsetof(GameSession, phase) == 568);
static_assert(offsetof(GameSession, now) == 572);
static_assert(offsetof(GameSession, deadline) == 576);
static_assert(offsetof(GameSession, clearFrame) == 580);
static_assert(offsetof(GameSession, shiftNext) == 584);
static_assert(offsetof(GameSession, shiftRepeating) == 588);
static_assert(offsetof(GameSession, softDropNext) == 592);
static_assert(offsetof(GameSession, gravityMs) == 596);
static_assert(offsetof(GameSession, lockDelayMs) == 600);
static_assert(offsetof(GameSession, backdrop) == 604);
static_assert(offsetof(GameSession, lines) == 608);
static_assert(offsetof(GameSession, level) == 612);
static_assert(offsetof(GameSession, score) == 616);
static_assert(offsetof(GameSession, timeLeft) == 620);
static_assert(offsetof(GameSession, dirty) == 624);
static_assert(offsetof(GameSession, soundEvent) == 628);
static_assert(offsetof(GameSession, mode) == 632);
static_assert(offsetof(GameSession, startLevel) == 636);
static_assert(offsetof(GameSession, queueLength) == 640);
static_assert(offsetof(GameSession, holdEnabled) == 644);
static_assert(offsetof(GameSession, ghostEnabled) == 645);
static_assert(offsetof(GameSession, soundEnabled) == 646);
static_assert(offsetof(GameSession, backToBack) == 647);
static_assert(offsetof(GameSession, reserved) == 648);
