// The well: a grid of 10 by 20 cells, the rows that are complete, the falling piece, and the
// supply of pieces to come.
//
// Columns count from the left, rows from the top, both from 0. Rows above the grid (negative) are
// not stored: within the well's columns they are always free, so a piece can enter partly above the
// well. The records are stored byte for byte with the settings, so their layout is fixed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/tetromino.h"

constexpr int wellColumns = 10;
constexpr int wellRows = 20;

struct Cell
{
    std::uint8_t occupied; ///< 1 filled, 0 empty
    std::uint8_t colour;   ///< the TetrominoType that filled it; means nothing when empty
};

/// The pieces to come, the next one first. They come in shuffled bags of all seven kinds, so each
/// seven pieces, counted from the start of a game, hold every kind once.
struct PieceQueue
{
    static constexpr int capacity = 16;

    std::int32_t count; ///< 0 to 16
    std::array<TetrominoType, capacity> entries;

    /// Leaves one fresh bag and nothing else.
    void reset();
    /// Appends a shuffled bag, drawing seven random numbers; false, and nothing happens, when seven
    /// more do not fit.
    bool addBag();
    /// Removes and returns the next piece, after adding a bag when one fits.
    TetrominoType take();
};

struct ActivePiece
{
    std::int32_t x; ///< column of its box origin
    std::int32_t y; ///< row of its box origin
    /// Where the renderer erases it: its place at the end of the previous running tick.
    std::int32_t prevX;
    std::int32_t prevY;
    std::int32_t prevRotation;
    TetrominoType type;
    std::int32_t rotation; ///< 0 to 3
    /// Where it would land if it dropped straight down.
    std::int32_t ghostX;
    std::int32_t ghostY;
    /// The ghost at the end of the previous running tick; noGhost in both for nothing to erase.
    std::int32_t prevGhostX;
    std::int32_t prevGhostY;
    std::uint8_t holdUsed; ///< 1 once hold was used for this piece
    std::array<std::uint8_t, 3> padding;
    PieceQueue queue;

    static constexpr std::int32_t noGhost = -999;

    /// Becomes the next piece of the queue, where it enters the well; hold may be used again.
    void takeNext();
    /// Moves to the place and rotation in which its type enters the well.
    void placeAtSpawn();
};

struct Playfield
{
    std::array<Cell, wellColumns * wellRows> cells; ///< row by row from the top
    /// 1 for each complete row that waits for removal.
    std::array<std::uint8_t, wellRows> fullRows;
    ActivePiece piece;

    /// An empty well, a piece of all zeros, and one bag in the queue.
    Playfield();

    /// Empties every cell; the flags and the piece stay.
    void clear();
    /// The cell, or null outside the grid.
    const Cell *cellAt(int column, int row) const;
    /// Fills a cell; does nothing outside the grid.
    void setCell(int column, int row, TetrominoType colour);

    /// Whether all four cells of a piece at (x, y) are free.
    bool fits(const RotationState &state, int x, int y) const;
    /// Whether the falling piece fits when it is moved by these columns and rows.
    bool pieceFits(int columns, int rows) const
    {
        return fits(currentState(), piece.x + columns, piece.y + rows);
    }
    /// Writes the falling piece into the grid where it is; cells outside are lost.
    void lockPiece();

    const RotationState &currentState() const { return rotationState(piece.type, piece.rotation); }
    /// The falling piece in its rotation at the end of the previous running tick.
    const RotationState &previousState() const
    {
        return rotationState(piece.type, piece.prevRotation);
    }

    /// Flags the complete rows, except row 0, and returns how many there are.
    int markFullRows();
    /// Removes the flagged rows, clears the flags, and returns how many there were.
    int removeFullRows();
    /// Moves everything above a row down by one and empties row 0.
    void removeRow(int row);
};

static_assert(sizeof(Cell) == 2);
static_assert(sizeof(PieceQueue) == 68);
static_assert(sizeof(Playfield) == 536);
static_assert(offsetof(Playfield, fullRows) == 400);
static_assert(offsetof(Playfield, piece) == 420);
static_assert(offsetof(ActivePiece, holdUsed) == 44);
static_assert(offsetof(ActivePiece, queue) == 48);
