// One game: the well, its clocks, the score, the player's options, and what leaves the engine
// after every tick: the parts of the screen to redraw and the sound to play.
//
// A window timer of 25 ms drives it. The rules are in game_session.cpp (the tick and its order of
// steps), actions.cpp (what the buttons do) and scoring.cpp (points, lines, levels, modes); the
// drawing is in render/. The record is stored byte for byte with the settings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "engine/playfield.h"
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
/// All of it and the backdrop too, which is redrawn only when every bit is set.
constexpr std::uint32_t everything = 511;
} // namespace dirty

/// What a tick sounds like, also the SoundPlayer's slot. The last one set in a tick counts.
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
    Ending = 2, ///< decided; the end message shows for a while
    Over = 3,   ///< the controller takes over
};

/// Of a running game.
enum class Phase : std::int32_t
{
    Falling = 0,
    Landed = 1,   ///< the lock delay runs
    Clearing = 2, ///< complete rows are flagged and shown for a moment before they go
};

enum class GameMode : std::int32_t
{
    Marathon = 0,
    FortyLines = 1,
    Ultra2Min = 2,
    Ultra3Min = 3,
};

/// Every duration of the game, in milliseconds unless said otherwise.
namespace timing {
constexpr int tick = 25;
constexpr int lockDelay = 1000;
constexpr int clear = 200; ///< five looks of 40 ms
constexpr int ending = 3000;
constexpr int firstShiftRepeat = 250;
constexpr int shiftRepeat = 100;
constexpr int softDropStep = 50;
constexpr int ticksPerSecond = 1000 / tick;
constexpr int ultra2MinTicks = 120 * ticksPerSecond;
constexpr int ultra3MinTicks = 180 * ticksPerSecond;
} // namespace timing

/// The window timer that drives the program, whichever screen is shown.
constexpr UINT mainTimer = 1;

struct GameSession
{
    HDC tileDC;              ///< source of every blit of the play screen; not kept
    HDC backDC;              ///< where the play screen is composed; not kept
    std::int32_t cellWidth;  ///< pixels, 11
    std::int32_t cellHeight; ///< pixels, 11
    std::int32_t boardLeft;  ///< pixels, 22
    std::int32_t boardTop;   ///< pixels, 11
    GameState state;
    Playfield playfield;
    std::int32_t holdType; ///< the TetrominoType in the hold box, -1 for none
    Phase phase;
    std::int32_t now; ///< tick count of the current tick
    /// Tick count of the next timed event: gravity step, lock, end of the clear, end of the ending.
    std::int32_t deadline;
    std::int32_t clearFrame;     ///< look of the rows being cleared, 0 to 4
    std::int32_t shiftNext;      ///< tick count of the earliest next shift; 0 for no wait
    std::uint8_t shiftRepeating; ///< 1 after the first shift of a held button
    std::array<std::uint8_t, 3> padding1;
    std::int32_t softDropNext; ///< tick count of the earliest next soft-drop step; 0 for no wait
    std::int32_t gravityMs;
    std::int32_t lockDelayMs;
    std::int32_t backdrop; ///< picture 0 to 2
    std::int32_t lines;    ///< rows cleared; in 40 Lines the rows still to clear
    std::int32_t level;
    std::int32_t score;
    std::int32_t timeLeft; ///< Ultra modes: 25 ms ticks
    std::uint32_t dirty;
    SoundEvent soundEvent;
    GameMode mode;            ///< 0 to 5; the title screen offers 0 to 3
    std::int32_t startLevel;  ///< 0 to 9
    std::int32_t queueLength; ///< next pieces shown: 0, 1 or 6
    std::uint8_t holdEnabled;
    std::uint8_t ghostEnabled;
    std::uint8_t soundEnabled;
    std::uint8_t backToBack; ///< the last clear was one of four rows
    std::uint8_t reserved;
    std::array<std::uint8_t, 3> padding2;

    GameSession();

    // The controller's calls. `window` owns the timer.

    /// The bitmaps, font and device contexts of the play screen; always succeeds (returns 1), what
    /// cannot be made stays empty.
    int create(HWND window);
    int destroy(HWND window);
    /// A game from the start, with the mode, start level and options as they are.
    void newGame(HWND window);
    void pause();
    void resume(HWND window);
    void stop(HWND window);
    /// A stored game whose end was showing: it ends by itself, within the time that an end takes,
    /// whatever the tick count was when it was stored.
    void continueEnding(HWND window);
    /// One tick: reads the buttons, applies the rules, paints what changed.
    void tick(HWND window, InputState &input);
    /// Redraws what is dirty and copies the play screen to `target`, or to the window's own device
    /// context when that is none. Returns 1.
    int paint(HWND window, HDC target);

    // The rules.

    void update(const InputState &input);
    void setLevel(int newLevel);
    bool stepDown();
    void updateGhost();
    // Tick counts wrap; differences and sums of them wrap with them.

    /// Milliseconds from a moment to this tick, negative when it is still to come.
    std::int32_t since(std::int32_t moment) const;
    /// The moment that many milliseconds after this tick.
    std::int32_t after(std::int32_t milliseconds) const;
    bool reached(std::int32_t moment) const { return since(moment) >= 0; }

    // The player's actions. Each tells whether the piece moved or turned.

    bool softDropStep();
    bool hardDrop();
    bool hold();
    bool shiftLeft() { return shift(-1); }
    bool shiftRight() { return shift(+1); }
    bool rotateRight();
    bool rotateLeft();

    // Scoring.

    void rowsCleared(int count);
    /// The points of a clear; notes whether it was one of four rows.
    int clearPoints(int count);
    /// The rows of this game, in all, at which a level ends.
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

inline std::int32_t GameSession::since(std::int32_t moment) const
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(now) -
                                     static_cast<std::uint32_t>(moment));
}

inline std::int32_t GameSession::after(std::int32_t milliseconds) const
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(now) +
                                     static_cast<std::uint32_t>(milliseconds));
}

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
