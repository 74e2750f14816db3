// What the player's buttons do to the falling piece. Every action tests the place it would move
// the piece to and changes nothing when the piece does not fit there.
#include "engine/game_session.h"

/// Applies the buttons of one tick, and gravity when SoftDrop is not held. The order is part of the
/// rules. Returns whether the piece moved or turned.
bool GameSession::applyActions(const InputState &input)
{
    const bool left = input.held(Action::Left);
    const bool right = input.held(Action::Right);
    if (!left && !right) {
        shiftNext = 0;
        shiftRepeating = 0;
    }
    if (phase == Phase::Clearing) { // the piece is already part of the grid
        return false;
    }
    bool moved = false;
    if (input.held(Action::SoftDrop)) {
        moved = softDropStep();
    } else if (reached(deadline)) {
        moved = stepDown();
    }
    if (input.pressed(Action::HardDrop)) {
        moved |= hardDrop();
    }
    if (input.pressed(Action::Hold) && holdEnabled != 0) {
        moved |= hold();
    }
    if (left) {
        moved |= shiftLeft();
    } else if (right) {
        moved |= shiftRight();
    }
    if (input.pressed(Action::RotateRight)) {
        moved |= rotateRight();
    }
    if (input.pressed(Action::RotateLeft)) {
        moved |= rotateLeft();
    }
    return moved;
}

bool GameSession::softDropStep()
{
    if (!waitOver(softDropNext) || !stepDown()) {
        return false;
    }
    score += 1;
    dirty |= dirty::score;
    return true;
}

bool GameSession::hardDrop()
{
    while (playfield.pieceFits(0, 1)) {
        ++playfield.piece.y;
        score += 2;
    }
    phase = Phase::Landed;
    deadline = now; // locks in the next tick
    dirty |= dirty::score;
    return true;
}

bool GameSession::hold()
{
    ActivePiece &piece = playfield.piece;
    if (piece.holdUsed != 0) {
        return false;
    }
    const std::int32_t held = holdType;
    holdType = static_cast<std::int32_t>(piece.type);
    if (held >= 0) {
        piece.type = static_cast<TetrominoType>(held);
        piece.placeAtSpawn();
    } else {
        piece.takeNext();
    }
    piece.holdUsed = 1;
    deadline = after(gravityMs);
    dirty |= dirty::everything;
    return false; // a move needs no redraw of its own
}

bool GameSession::shift(int dx)
{
    if (!waitOver(shiftNext) || !playfield.pieceFits(dx, 0)) {
        return false;
    }
    playfield.piece.x += dx;
    shiftNext = after(shiftRepeating != 0 ? timing::shiftRepeat : timing::firstShiftRepeat);
    shiftRepeating = 1;
    soundEvent = SoundEvent::Shift;
    return true;
}

bool GameSession::rotateRight()
{
    const ActivePiece &piece = playfield.piece;
    return turn((piece.rotation + 1) % rotationCount, playfield.currentState(), +1);
}

bool GameSession::rotateLeft()
{
    const ActivePiece &piece = playfield.piece;
    const int target = (piece.rotation + 3) % rotationCount;
    return turn(target, rotationState(piece.type, target), -1);
}

/// Takes the first of the five places where the turned piece fits: the kicks of `kicksOf` times
/// `direction`.
bool GameSession::turn(int targetRotation, const RotationState &kicksOf, int direction)
{
    ActivePiece &piece = playfield.piece;
    const RotationState &target = rotationState(piece.type, targetRotation);
    for (const CellOffset &kick : kicksOf.kicks) {
        const int x = piece.x + direction * kick.x;
        const int y = piece.y + direction * kick.y;
        if (playfield.fits(target, x, y)) {
            piece.x = x;
            piece.y = y;
            piece.rotation = targetRotation;
            soundEvent = SoundEvent::Rotate;
            return true;
        }
    }
    return false;
}
