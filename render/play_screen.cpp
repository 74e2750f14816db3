// Draws a game: redraws in `screenSurface` only what the session marked dirty, then copies the
// whole picture to the window.
#include "render/play_screen.h"

#include <algorithm>

#include "render/selection.h"

namespace {

constexpr RECT wholeScreen{0, 0, screenWidth, screenHeight};
constexpr RECT queueRect{154, 11, 228, 161};
constexpr RECT holdRect{154, 185, 228, 209};
constexpr int queuePitch = 25;  ///< pixels from one coming piece to the next
constexpr int pieceBoxSide = 4; ///< cells

/// Rows of the tile sheet.
constexpr int normalLook = 0; // 1 to 4: a row that is being cleared
constexpr int lastClearLook = 4;
constexpr int ghostLook = 5;

/// How many pixels left of and above the common place a piece is drawn in the next-piece and hold
/// boxes, so that every piece is centred there. Indexed by type.
constexpr POINT previewShifts[tetrominoCount] = {{-5, 0},  {-5, 0},  {-5, 11}, {0, 0},
                                                 {-5, 11}, {-5, 11}, {11, 16}};
/// The middle of both boxes; the common place is two cells left of it.
constexpr int previewMiddle = 191;

HBITMAP backdropOf(const GameSession &session)
{
    return backdrops[static_cast<std::size_t>(session.backdrop)]->bitmap;
}

/// Copies a rectangle of the session's backdrop to the same place of the screen.
void restoreBackdrop(const GameSession &session, const RECT &rect = wholeScreen)
{
    const Selection backdrop(session.tileDC, backdropOf(session));
    BitBlt(session.backDC, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
           session.tileDC, rect.left, rect.top, SRCCOPY);
}

/// Copies one tile of the tile sheet, which is selected into `tileDC`, to a place in pixels.
void drawTile(const GameSession &session, int x, int y, int column, int look)
{
    BitBlt(session.backDC, x, y, session.cellWidth, session.cellHeight, session.tileDC,
           column * session.cellWidth, look * session.cellHeight, SRCCOPY);
}

/// The upper left corner of a cell of the well.
POINT cornerOf(const GameSession &session, int column, int row)
{
    return {session.boardLeft + session.cellWidth * column,
            session.boardTop + session.cellHeight * row};
}

void drawCell(const GameSession &session, int column, int row, const Cell &cell, int look)
{
    if (row >= 0 && cell.occupied != 0) {
        const auto [x, y] = cornerOf(session, column, row);
        drawTile(session, x, y, cell.colour, look);
    }
}

/// Puts the backdrop, which is selected into `tileDC`, back where a cell is.
void eraseCell(const GameSession &session, int column, int row)
{
    if (row >= 0) {
        const auto [x, y] = cornerOf(session, column, row);
        BitBlt(session.backDC, x, y, session.cellWidth, session.cellHeight, session.tileDC, x, y,
               SRCCOPY);
    }
}

/// Draws the falling piece where it is.
void drawPiece(const GameSession &session)
{
    const ActivePiece &piece = session.playfield.piece;
    const Cell cell{1, static_cast<std::uint8_t>(piece.type)};
    for (const CellOffset &offset : session.playfield.currentState().cells) {
        drawCell(session, piece.x + offset.x, piece.y + offset.y, cell, normalLook);
    }
}

void erasePiece(const GameSession &session, const RotationState &state, int x, int y)
{
    for (const CellOffset &offset : state.cells) {
        eraseCell(session, x + offset.x, y + offset.y);
    }
}

/// Outlines the cells of the ghost, unless it is off or its box origin is above the well.
void drawGhost(const GameSession &session)
{
    const ActivePiece &piece = session.playfield.piece;
    if (session.ghostEnabled == 0 || piece.ghostY < 0) {
        return;
    }
    const int width = session.cellWidth;
    const int height = session.cellHeight;
    for (const CellOffset &offset : session.playfield.currentState().cells) {
        const auto [left, top] =
            cornerOf(session, piece.ghostX + offset.x, piece.ghostY + offset.y);
        TransparentImage(session.backDC, left, top, width, height, session.tileDC,
                         static_cast<int>(piece.type) * width, ghostLook * height, width, height,
                         RGB(0, 0, 0));
    }
}

/// Draws a piece into a box, in the rotation in which it enters the well; `top` is the upper edge
/// of its slot in pixels.
void drawPreview(const GameSession &session, TetrominoType type, int top)
{
    const POINT &shift = previewShifts[static_cast<std::size_t>(type)];
    const int left = previewMiddle - 2 * session.cellWidth - shift.x;
    for (const CellOffset &offset : rotationState(type, spawnPlace(type).rotation).cells) {
        drawTile(session, left + session.cellWidth * offset.x,
                 top - shift.y + session.cellHeight * offset.y, static_cast<int>(type), normalLook);
    }
}

void drawRow(const GameSession &session, int row, int look)
{
    const Cell *cells = &session.playfield.cells[static_cast<std::size_t>(row * wellColumns)];
    for (int column = 0; column < wellColumns; ++column) {
        drawCell(session, column, row, cells[column], look);
    }
}

/// Draws the whole well, without the falling piece once the game is decided.
void drawBoard(const GameSession &session)
{
    eraseRect(session, boardRect);
    const Selection tiles(session.tileDC, tileSheet->bitmap);
    for (int row = 0; row < wellRows; ++row) {
        drawRow(session, row, normalLook);
    }
    if (session.state != GameState::Ending) {
        drawGhost(session);
        drawPiece(session);
    }
}

bool wasDrawn(int x, int y) { return x > ActivePiece::noGhost || y > ActivePiece::noGhost; }

/// Moves the falling piece and its ghost from where the last tick drew them to where they are.
void drawFallingPiece(const GameSession &session)
{
    const Playfield &playfield = session.playfield;
    const ActivePiece &piece = playfield.piece;
    const bool ghostMoved = piece.prevGhostX != piece.ghostX || piece.prevGhostY != piece.ghostY ||
                            piece.prevRotation != piece.rotation;
    // From farther above, the piece cannot have covered any of a ghost that stays.
    const bool ghostCovered = piece.ghostY - piece.prevY < pieceBoxSide;
    {
        const Selection backdrop(session.tileDC, backdropOf(session));
        if (ghostMoved && wasDrawn(piece.prevGhostX, piece.prevGhostY)) {
            erasePiece(session, playfield.previousState(), piece.prevGhostX, piece.prevGhostY);
        }
        if (wasDrawn(piece.prevX, piece.prevY)) {
            erasePiece(session, playfield.previousState(), piece.prevX, piece.prevY);
        }
    }
    const Selection tiles(session.tileDC, tileSheet->bitmap);
    if (ghostMoved || ghostCovered) {
        drawGhost(session);
    }
    drawPiece(session);
}

/// Draws the complete rows in the look of the moment. In a clear that goes on after a pause,
/// `clearFrame` counts up from far below 0: that shows the normal look.
void drawClearingRows(const GameSession &session)
{
    const int look = std::clamp(session.clearFrame, normalLook, lastClearLook);
    const Selection tiles(session.tileDC, tileSheet->bitmap);
    for (int row = 0; row < wellRows; ++row) {
        if (session.playfield.fullRows[static_cast<std::size_t>(row)] != 0) {
            drawRow(session, row, look);
        }
    }
}

void drawQueue(const GameSession &session)
{
    eraseRect(session, queueRect);
    const Selection tiles(session.tileDC, tileSheet->bitmap);
    const PieceQueue &queue = session.playfield.piece.queue;
    for (int slot = 0; slot < std::min(session.queueLength, queue.count); ++slot) {
        drawPreview(session, queue.entries[static_cast<std::size_t>(slot)],
                    queueRect.top + queuePitch * slot);
    }
}

void drawHold(const GameSession &session)
{
    eraseRect(session, holdRect);
    if (session.holdType >= 0) {
        const Selection tiles(session.tileDC, tileSheet->bitmap);
        drawPreview(session, static_cast<TetrominoType>(session.holdType), holdRect.top);
    }
}

/// Redraws what is dirty in the well.
void drawWell(const GameSession &session)
{
    if ((session.dirty & dirty::well) != 0) {
        drawBoard(session);
        return;
    }
    if ((session.dirty & dirty::movedPiece) != 0) {
        drawFallingPiece(session);
    }
    if ((session.dirty & dirty::clearAnimation) != 0) {
        drawClearingRows(session);
    }
}

void compose(const GameSession &session)
{
    const bool paused = session.state == GameState::Paused;
    const bool ending = session.state == GameState::Ending;
    if (session.dirty == dirty::everything) {
        restoreBackdrop(session);
    }
    if (paused) {
        drawPausedOverlay(session); // which hides the well
    } else {
        drawWell(session);
    }
    if (ending) {
        drawEndOverlay(session);
    }
    drawValues(session);
    if ((session.dirty & dirty::queue) != 0 && !paused && !ending) {
        drawQueue(session);
    }
    if ((session.dirty & dirty::hold) != 0 && !paused) {
        drawHold(session);
    }
}

} // namespace

void eraseRect(const GameSession &session, const RECT &rect)
{
    if (session.dirty != dirty::everything) {
        restoreBackdrop(session, rect);
    }
}

int GameSession::paint(HWND, HDC target)
{
    const Selection back(backDC, screenSurface->bitmap);
    compose(*this);
    BitBlt(target ? target : windowDC, 0, 0, screenWidth, screenHeight, backDC, 0, 0, SRCCOPY);
    dirty = 0;
    return 1;
}
