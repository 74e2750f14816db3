// The life of a game and its tick. The order of steps in `tick` and `update` is part of the rules:
// it decides, for example, what a button does in the tick in which a piece locks.
#include "engine/game_session.h"

#include <algorithm>

// The life of a game ------------------------------------------------------------------------------

void GameSession::newGame(HWND window)
{
    playfield.clear();
    score = 0;
    lines = mode == GameMode::FortyLines ? 40 : 0;
    timeLeft = mode == GameMode::Ultra2Min   ? timing::ultra2MinTicks
               : mode == GameMode::Ultra3Min ? timing::ultra3MinTicks
                                             : 0;
    backToBack = 0;
    reserved = 0;
    setLevel(startLevel);

    ActivePiece &piece = playfield.piece;
    piece.prevGhostX = ActivePiece::noGhost;
    piece.prevGhostY = ActivePiece::noGhost;
    piece.queue.count = 0;
    piece.takeNext();

    holdType = -1;
    state = GameState::Running;
    lockDelayMs = timing::lockDelay;
    phase = Phase::Falling;
    resume(window);
}

void GameSession::resume(HWND window)
{
    dirty = dirty::everything;
    state = GameState::Running;
    SetTimer(window, mainTimer, timing::tick, nullptr);
    now = timing::now();
    restartTiming();
}

void GameSession::pause()
{
    state = GameState::Paused;
    dirty = dirty::everything;
    restartTiming();
}

/// Whatever the game was waiting for, a lock or the end of a clear too, now takes one gravity
/// interval.
void GameSession::restartTiming()
{
    deadline = after(gravityMs);
    shiftNext = 0;
    shiftRepeating = 0;
    softDropNext = 0;
}

void GameSession::stop(HWND window)
{
    dirty = dirty::everything;
    KillTimer(window, mainTimer);
}

void GameSession::continueEnding(HWND window)
{
    if (since(deadline) < -timing::ending) {
        deadline = after(timing::ending);
    }
    SetTimer(window, mainTimer, timing::tick, nullptr);
}

void GameSession::decideGame()
{
    state = GameState::Ending;
    deadline = after(timing::ending);
    dirty |= dirty::well;
}

// The tick ----------------------------------------------------------------------------------------

void GameSession::tick(HWND window, InputState &input)
{
    soundEvent = SoundEvent::None;
    now = timing::now();
    input.poll();
    handlePauseButton(window, input);
    if (state == GameState::Running) {
        update(input);
    }
    if (dirty != 0) {
        paint(window, HDC{});
    }
    if (state == GameState::Running) {
        rememberDrawnPiece();
    }
    if (state == GameState::Ending && since(deadline) > 0) {
        state = GameState::Over;
    }
}

std::optional<std::int32_t> GameSession::nextChange(const InputState &input) const
{
    if (dirty != 0 || input.held(Action::SoftDrop)) {
        return now;
    }
    if (state == GameState::Paused) {
        return std::nullopt;
    }
    if (state != GameState::Running || phase == Phase::Clearing) {
        return now;
    }
    std::int32_t quiet = timing::between(now, deadline);
    if (input.held(Action::Left) || input.held(Action::Right)) {
        quiet = std::min(quiet, timing::between(now, shiftNext));
    }
    if (isUltra()) {
        const int ticks = std::min(timeLeft % timing::ticksPerSecond, timeLeft - 1);
        quiet = std::min(quiet, (ticks + 1) * timing::tick);
    }
    return after(quiet);
}

void GameSession::handlePauseButton(HWND window, const InputState &input)
{
    if (!input.pressed(Action::Pause)) {
        return;
    }
    if (state == GameState::Paused) {
        resume(window);
    } else if (state == GameState::Running) {
        pause();
    }
    dirty |= dirty::everything;
}

/// The next paint erases the piece and its ghost where they are now.
void GameSession::rememberDrawnPiece()
{
    ActivePiece &piece = playfield.piece;
    piece.prevX = piece.x;
    piece.prevY = piece.y;
    piece.prevRotation = piece.rotation;
    piece.prevGhostX = piece.ghostX;
    piece.prevGhostY = piece.ghostY;
}

void GameSession::update(const InputState &input)
{
    bool spawn = false;
    if (phase == Phase::Landed && reached(deadline)) {
        spawn = lockLandedPiece();
    }
    if (phase == Phase::Clearing && reached(deadline)) {
        if (!finishClear()) {
            return;
        }
        spawn = true;
    }
    if (spawn && !spawnPiece()) {
        return;
    }
    const bool moved = applyActions(input);
    testLanding();
    if (moved) {
        dirty |= dirty::movedPiece;
    }
    if (phase == Phase::Clearing) {
        clearFrame = 4 + 5 * since(deadline) / timing::clear;
        dirty |= dirty::clearAnimation;
    }
    if (isUltra() && !stepUltraClock()) {
        return;
    }
    updateGhost();
}

/// Returns true when no row is complete, so that the next piece follows at once.
bool GameSession::lockLandedPiece()
{
    playfield.lockPiece();
    if (playfield.markFullRows() == 0) {
        soundEvent = SoundEvent::Lock;
        return true;
    }
    phase = Phase::Clearing;
    soundEvent = SoundEvent::RowsComplete;
    dirty |= dirty::well;
    deadline = after(timing::clear);
    return false;
}

/// Removes the complete rows; returns whether the game goes on.
bool GameSession::finishClear()
{
    const std::int32_t levelBefore = level;
    rowsCleared(playfield.removeFullRows());
    if (level > levelBefore) {
        soundEvent = SoundEvent::LevelUp;
    }
    return state == GameState::Running;
}

/// Brings the next piece in; false when it does not fit, which ends the game.
bool GameSession::spawnPiece()
{
    dirty |= dirty::well | dirty::queue;
    playfield.piece.takeNext();
    if (!playfield.pieceFits(0, 0)) {
        soundEvent = SoundEvent::Lock;
        decideGame();
        return false;
    }
    phase = Phase::Falling;
    deadline = after(gravityMs);
    return true;
}

/// A piece lands in the tick in which it can no longer fall, and falls again as soon as it can.
/// Moving it on the ground does not restart its lock delay.
void GameSession::testLanding()
{
    const bool canFall = playfield.pieceFits(0, 1);
    if (phase == Phase::Falling && !canFall) {
        phase = Phase::Landed;
        deadline = after(lockDelayMs);
    } else if (phase == Phase::Landed && canFall) {
        phase = Phase::Falling;
        deadline = after(gravityMs);
    }
}

/// Counts one tick down; false when it was the last, which ends the game.
bool GameSession::stepUltraClock()
{
    if (timeLeft % timing::ticksPerSecond == 0) {
        dirty |= dirty::time;
    }
    --timeLeft;
    if (timeLeft <= 0) {
        decideGame();
        return false;
    }
    return true;
}

bool GameSession::stepDown()
{
    if (!playfield.pieceFits(0, 1)) {
        return false;
    }
    ++playfield.piece.y;
    deadline = after(gravityMs);
    softDropNext = after(timing::softDropStep);
    return true;
}

void GameSession::updateGhost()
{
    ActivePiece &piece = playfield.piece;
    piece.ghostX = piece.x;
    piece.ghostY = piece.y;
    while (playfield.fits(playfield.currentState(), piece.ghostX, piece.ghostY + 1)) {
        ++piece.ghostY;
    }
}
