// The well's cells, the collision test, the removal of rows, and the supply of pieces.
#include "engine/playfield.h"

#include <algorithm>
#include <utility>

#include "engine/random.h"

namespace {

bool inGrid(int column, int row)
{
    return column >= 0 && column < wellColumns && row >= 0 && row < wellRows;
}

std::size_t cellIndex(int column, int row)
{
    return static_cast<std::size_t>(row * wellColumns + column);
}

} // namespace

// The supply ------------------------------------------------------------------------------------

void PieceQueue::reset()
{
    count = 0;
    addBag();
}

bool PieceQueue::addBag()
{
    if (count + tetrominoCount > capacity) {
        return false;
    }
    using enum TetrominoType;
    std::array bag{J, L, S, O, Z, T, I};
    for (std::size_t i = 0; i < bag.size(); ++i) {
        // An entry is never swapped with itself: the game's shuffle has always been biased.
        auto j = static_cast<std::size_t>(drawRandom() % (tetrominoCount - 1));
        if (j == i) {
            j = i + 1;
        }
        std::swap(bag[i], bag[j]);
    }
    std::copy(bag.begin(), bag.end(), entries.begin() + count);
    count += tetrominoCount;
    return true;
}

TetrominoType PieceQueue::take()
{
    addBag();
    const TetrominoType next = entries[0];
    std::copy(entries.begin() + 1, entries.begin() + count, entries.begin());
    --count;
    return next;
}

// The falling piece -------------------------------------------------------------------------------

void ActivePiece::takeNext()
{
    type = queue.take();
    placeAtSpawn();
    holdUsed = 0;
}

void ActivePiece::placeAtSpawn()
{
    const SpawnPlace &place = spawnPlace(type);
    x = place.x;
    y = place.y;
    rotation = place.rotation;
}

// The well ----------------------------------------------------------------------------------------

Playfield::Playfield() : cells{}, fullRows{}, piece{} { piece.queue.reset(); }

void Playfield::clear() { cells.fill(Cell{}); }

const Cell *Playfield::cellAt(int column, int row) const
{
    return inGrid(column, row) ? &cells[cellIndex(column, row)] : nullptr;
}

void Playfield::setCell(int column, int row, TetrominoType colour)
{
    if (inGrid(column, row)) {
        cells[cellIndex(column, row)] = {1, static_cast<std::uint8_t>(colour)};
    }
}

bool Playfield::fits(const RotationState &state, int x, int y) const
{
    return std::all_of(state.cells.begin(), state.cells.end(), [&](const CellOffset &offset) {
        const int column = x + offset.x;
        const int row = y + offset.y;
        if (row < 0) {
            return column >= 0 && column < wellColumns;
        }
        const Cell *cell = cellAt(column, row);
        return cell && cell->occupied == 0;
    });
}

void Playfield::lockPiece()
{
    for (const CellOffset &offset : currentState().cells) {
        setCell(piece.x + offset.x, piece.y + offset.y, piece.type);
    }
}

int Playfield::markFullRows()
{
    int count = 0;
    for (int row = 1; row < wellRows; ++row) {
        const auto begin = cells.begin() + row * wellColumns;
        const bool full = std::all_of(begin, begin + wellColumns,
                                      [](const Cell &cell) { return cell.occupied != 0; });
        fullRows[static_cast<std::size_t>(row)] = full ? 1 : 0;
        count += full ? 1 : 0;
    }
    return count;
}

int Playfield::removeFullRows()
{
    int count = 0;
    // From the top down: removing a row moves only the rows above it.
    for (int row = 1; row < wellRows; ++row) {
        if (fullRows[static_cast<std::size_t>(row)] != 0) {
            removeRow(row);
            ++count;
        }
    }
    fullRows.fill(0);
    return count;
}

void Playfield::removeRow(int row)
{
    const auto end = cells.begin() + row * wellColumns;
    std::copy_backward(cells.begin(), end, end + wellColumns);
    std::fill_n(cells.begin(), wellColumns, Cell{});
}
