#include "engine/tetromino.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "engine/playfield.h"

namespace {

using Shape = std::vector<std::pair<int, int>>;

Shape sorted(const RotationState &state)
{
    Shape shape;
    for (const CellOffset &cell : state.cells) {
        shape.emplace_back(cell.x, cell.y);
    }
    std::sort(shape.begin(), shape.end());
    return shape;
}

/// A quarter turn within a square box of that side.
Shape turned(const Shape &shape, int side, bool clockwise)
{
    Shape result;
    for (const auto &[x, y] : shape) {
        result.emplace_back(clockwise ? side - 1 - y : y, clockwise ? x : side - 1 - x);
    }
    std::sort(result.begin(), result.end());
    return result;
}

TEST(Tetromino, EachRotationIsAQuarterTurnOfTheOneBefore)
{
    using enum TetrominoType;
    for (const TetrominoType type : {J, L, S, Z, T, I}) {
        for (int rotation = 0; rotation < rotationCount; ++rotation) {
            const Shape next = sorted(rotationState(type, (rotation + 1) % rotationCount));
            EXPECT_EQ(next, turned(sorted(rotationState(type, rotation)), type == I ? 5 : 3,
                                   type != S && type != Z))
                << static_cast<int>(type) << " from rotation " << rotation;
        }
    }
}

TEST(Tetromino, EntersWithItsLowestCellsInTheTopRow)
{
    const Shape expected[] = {
        {{3, -1}, {3, 0}, {4, 0}, {5, 0}},  {{3, 0}, {4, 0}, {5, -1}, {5, 0}},
        {{3, 0}, {4, -1}, {4, 0}, {5, -1}}, {{4, -1}, {4, 0}, {5, -1}, {5, 0}},
        {{3, -1}, {4, -1}, {4, 0}, {5, 0}}, {{3, -1}, {4, -1}, {4, 0}, {5, -1}},
        {{3, 0}, {4, 0}, {5, 0}, {6, 0}},
    };
    ActivePiece piece{};
    for (int type = 0; type < tetrominoCount; ++type) {
        piece.type = static_cast<TetrominoType>(type);
        piece.placeAtSpawn();
        Shape cells = sorted(rotationState(piece.type, piece.rotation));
        for (auto &[x, y] : cells) {
            x += piece.x;
            y += piece.y;
        }
        EXPECT_EQ(cells, expected[type]) << type;
    }
}

} // namespace
