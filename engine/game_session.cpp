// The life of a game and its tick. The order of steps in `tick` and `update` is the rules: what a
// button does in the tick in which a piece locks follows from nothing else.
#include "engine/game_session.h"

GameSession::GameSession()
    : tileDC{}, backDC{}, cellWidth(11), cellHeight(11), boardLeft(22), boardTop(11),
      state(GameState::Running), holdType(0), phase(Phase::Falling), now(0), deadline(0),
      clearFrame(0), shiftNext(0), shiftRepeating(0), padding1{}, softDropNext(0), gravityMs(0),
      lockDelayMs(0), backdrop(0), lines(0), level(0), score(0), timeLeft(0), dirty(0),
      soundEvent(SoundEvent::None), mode(GameMode::Marathon), startLevel(0), queueLength(6),
      holdEnabled(1), ghostEnabled(1), soundEnabled(1), backToBack(0), reserved(0), padding2{}
{}

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
    now = static_cast<std::int32_t>(GetTickCount());
    restartTiming();
}

void GameSession::pause()
{
    state = GameState::Paused;
    dirty = dirty::everything;
    restartTiming();
}

/// Whatever was running, a lock delay or a clear too, goes on after one gravity interval.
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
    now = static_cast<std::int32_t>(GetTickCount());
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

/// The renderer erases the piece and its ghost there next time.
void GameSession::rememberDrawnPiece()
{
    ActivePiece &piece = playfield.piece;
    piece.prevX = piece.x;
    piece.prevY = piece.y;
    piece.prevRotation = piece.rotation;
    piece.prevGhostX = piece.ghostX;
    piece.prevGhostY = piece.ghostY;
}

/// The rules of one running tick.
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

/// Whether the next piece follows at once, no row being complete.
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

/// Removes the complete rows; whether the game goes on.
bool GameSession::finishClear()
{
    const std::int32_t levelBefore = level;
    rowsCleared(playfield.removeFullRows());
    if (level > levelBefore) {
        soundEvent = SoundEvent::LevelUp;
    }
    return state == GameState::Running;
}

/// Brings the next piece in; false, and the game is decided, when it does not fit.
bool GameSession::spawnPiece()
{
    ActivePiece &piece = playfield.piece;
    dirty |= dirty::well | dirty::queue;
    piece.takeNext();
    if (!playfield.fits(playfield.currentState(), piece.x, piece.y)) {
        soundEvent = SoundEvent::Lock;
        decideGame();
        return false;
    }
    phase = Phase::Falling;
    deadline = after(gravityMs);
    return true;
}

/// A piece lands in the tick in which it can no longer fall, and takes off when it can again;
/// moving it on the ground does not restart its lock delay.
void GameSession::testLanding()
{
    const ActivePiece &piece = playfield.piece;
    const bool canFall = playfield.fits(playfield.currentState(), piece.x, piece.y + 1);
    if (phase == Phase::Falling && !canFall) {
        phase = Phase::Landed;
        deadline = after(lockDelayMs);
    } else if (phase == Phase::Landed && canFall) {
        phase = Phase::Falling;
        deadline = after(gravityMs);
    }
}

/// Counts one tick off; false, and the game is decided, when none is left.
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
    ActivePiece &piece = playfield.piece;
    if (!playfield.fits(playfield.currentState(), piece.x, piece.y + 1)) {
        return false;
    }
    ++piece.y;
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
