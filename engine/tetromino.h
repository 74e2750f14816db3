// The seven tetrominoes: their cells in four rotations, the places that a turn tries, and the place
// where each one enters the well.
#pragma once

#include <array>
#include <cstdint>

/// A piece's kind; also its colour, and the column of its tile in the tile sheet.
enum class TetrominoType : std::int32_t
{
    J,
    L,
    S,
    O,
    Z,
    T,
    I
};

constexpr int tetrominoCount = 7;
constexpr int rotationCount = 4;
constexpr int kickCount = 5;

/// A place or a step in cells: x to the right, y downward.
struct CellOffset
{
    std::int32_t x;
    std::int32_t y;
};

/// One piece in one rotation.
struct RotationState
{
    TetrominoType type;
    /// Relative to the piece's box origin.
    std::array<CellOffset, 4> cells;
    /// How far a turn to the right out of this rotation moves the piece: the first step to a free
    /// place counts. The turn back to the left goes the opposite way.
    std::array<CellOffset, kickCount> kicks;
};

/// All 28 states, at index type * 4 + rotation.
extern const std::array<RotationState, tetrominoCount * rotationCount> rotationStates;

inline const RotationState &rotationState(TetrominoType type, int rotation)
{
    return rotationStates[static_cast<std::size_t>(static_cast<int>(type) * rotationCount +
                                                   rotation)];
}

/// Where a piece enters the well: the cell of its box origin, and its rotation.
struct SpawnPlace
{
    std::int32_t x;
    std::int32_t y;
    std::int32_t rotation;
};

/// Indexed by type.
extern const std::array<SpawnPlace, tetrominoCount> spawnTable;

inline const SpawnPlace &spawnPlace(TetrominoType type)
{
    return spawnTable[static_cast<std::size_t>(type)];
}
