// The shapes, kicks and places of entry. The tables are the rule: nothing is computed by turning.
#include "engine/tetromino.h"

namespace {

using Cells = std::array<CellOffset, 4>;
using Kicks = std::array<CellOffset, kickCount>;

template <class Entry>
using PerRotation = std::array<Entry, rotationCount>;
template <class Entry>
using PerType = std::array<PerRotation<Entry>, tetrominoCount>;

constexpr Cells square{{{1, 0}, {2, 0}, {1, 1}, {2, 1}}};

constexpr PerType<Cells> cellTable{{
    // J
    {{{{{0, 1}, {1, 1}, {2, 1}, {0, 0}}},
      {{{1, 0}, {1, 1}, {1, 2}, {2, 0}}},
      {{{0, 1}, {1, 1}, {2, 1}, {2, 2}}},
      {{{1, 0}, {1, 1}, {1, 2}, {0, 2}}}}},
    // L
    {{{{{0, 1}, {1, 1}, {2, 1}, {2, 0}}},
      {{{1, 0}, {1, 1}, {1, 2}, {2, 2}}},
      {{{0, 1}, {1, 1}, {2, 1}, {0, 2}}},
      {{{1, 0}, {1, 1}, {1, 2}, {0, 0}}}}},
    // S: starts flat in the lower rows of its box, and turns the other way round
    {{{{{0, 2}, {1, 2}, {1, 1}, {2, 1}}},
      {{{1, 0}, {1, 1}, {2, 1}, {2, 2}}},
      {{{0, 1}, {1, 1}, {1, 0}, {2, 0}}},
      {{{0, 0}, {0, 1}, {1, 1}, {1, 2}}}}},
    // O
    {{square, square, square, square}},
    // Z: like S
    {{{{{0, 1}, {1, 1}, {1, 2}, {2, 2}}},
      {{{2, 0}, {2, 1}, {1, 1}, {1, 2}}},
      {{{0, 0}, {1, 0}, {1, 1}, {2, 1}}},
      {{{1, 0}, {1, 1}, {0, 1}, {0, 2}}}}},
    // T
    {{{{{2, 1}, {1, 0}, {1, 1}, {0, 1}}},
      {{{2, 1}, {1, 0}, {1, 1}, {1, 2}}},
      {{{2, 1}, {0, 1}, {1, 1}, {1, 2}}},
      {{{1, 0}, {0, 1}, {1, 1}, {1, 2}}}}},
    // I: turns about the cell (2, 2) of a 5 by 5 box
    {{{{{1, 2}, {2, 2}, {3, 2}, {4, 2}}},
      {{{2, 1}, {2, 2}, {2, 3}, {2, 4}}},
      {{{0, 2}, {1, 2}, {2, 2}, {3, 2}}},
      {{{2, 0}, {2, 1}, {2, 2}, {2, 3}}}}},
}};

constexpr PerRotation<Kicks> commonKicks{{
    {{{0, 0}, {-1, 0}, {-1, -1}, {0, 2}, {-1, 2}}},
    {{{0, 0}, {1, 0}, {1, 1}, {0, -2}, {1, -2}}},
    {{{0, 0}, {1, 0}, {1, -1}, {0, 2}, {1, 2}}},
    {{{0, 0}, {-1, 0}, {-1, 1}, {0, -2}, {-1, -2}}},
}};

constexpr PerRotation<Kicks> noKicks{};

// Every turn of the I moves its box by the first offset, even with nothing in the way.
constexpr PerRotation<Kicks> barKicks{{
    {{{1, 0}, {-1, 0}, {2, 0}, {-1, 1}, {2, -2}}},
    {{{0, 1}, {-1, 1}, {2, 1}, {-1, -1}, {2, 2}}},
    {{{-1, 0}, {1, 0}, {-2, 0}, {1, -1}, {-2, 2}}},
    {{{0, -1}, {1, -1}, {-2, -1}, {1, 1}, {-2, -2}}},
}};

constexpr PerType<Kicks> kickTable{
    {commonKicks, commonKicks, commonKicks, noKicks, commonKicks, commonKicks, barKicks}};

constexpr auto buildRotationStates()
{
    std::array<RotationState, tetrominoCount * rotationCount> states{};
    for (std::size_t type = 0; type < tetrominoCount; ++type) {
        for (std::size_t rotation = 0; rotation < rotationCount; ++rotation) {
            states[type * rotationCount + rotation] = {static_cast<TetrominoType>(type),
                                                       cellTable[type][rotation],
                                                       kickTable[type][rotation]};
        }
    }
    return states;
}

} // namespace

constexpr std::array<RotationState, tetrominoCount *rotationCount> rotationStates =
    buildRotationStates();

// Every piece enters with its lowest cells in row 0; the T points down.
constexpr std::array<SpawnPlace, tetrominoCount> spawnTable{{
    {3, -1, 0}, // J
    {3, -1, 0}, // L
    {3, -2, 0}, // S
    {3, -1, 0}, // O
    {3, -2, 0}, // Z
    {3, -2, 2}, // T
    {2, -2, 0}, // I
}};
