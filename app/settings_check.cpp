// The limits of the stored record, field by field in its order. Not checked is what means nothing
// when it is read (handles, `appState`, the title screen, `requestedState`, which has a default)
// and what may hold anything: tick counts, which are only ever compared, intervals, redraw flags,
// and flags, which are set by any value but 0.
#include "app/settings_check.h"

#include <algorithm>
#include <cstring>

#include "app/game_app.h"

namespace {

/// The signed 32-bit field at `offset` must lie between the two, inclusive.
struct Limit
{
    const char *field;
    std::size_t offset;
    std::int32_t lowest;
    std::int32_t highest;
};

/// Far enough for every game, near enough that no sum of points overflows.
constexpr std::int32_t most = 1'000'000'000;
constexpr std::int32_t mostLevel = 9'999;
/// Cells around the well in which a piece may be remembered.
constexpr std::int32_t far = 999;

#define GLIMRA_LIMIT(field, lowest, highest) \
    Limit { #field, offsetof(GameApp, field), lowest, highest }

constexpr Limit limits[] = {
    GLIMRA_LIMIT(session.cellWidth, 11, 11),
    GLIMRA_LIMIT(session.cellHeight, 11, 11),
    GLIMRA_LIMIT(session.boardLeft, 22, 22),
    GLIMRA_LIMIT(session.boardTop, 11, 11),
    GLIMRA_LIMIT(session.state, 0, 3),
    GLIMRA_LIMIT(session.playfield.piece.x, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.y, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.prevX, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.prevY, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.prevRotation, 0, rotationCount - 1),
    GLIMRA_LIMIT(session.playfield.piece.type, 0, tetrominoCount - 1),
    GLIMRA_LIMIT(session.playfield.piece.rotation, 0, rotationCount - 1),
    GLIMRA_LIMIT(session.playfield.piece.ghostX, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.ghostY, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.prevGhostX, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.prevGhostY, -far, far),
    GLIMRA_LIMIT(session.playfield.piece.queue.count, 0, PieceQueue::capacity),
    GLIMRA_LIMIT(session.holdType, -1, tetrominoCount - 1),
    GLIMRA_LIMIT(session.phase, 0, 2),
    GLIMRA_LIMIT(session.backdrop, 0, 2),
    GLIMRA_LIMIT(session.lines, -most, most),
    GLIMRA_LIMIT(session.level, 0, mostLevel),
    GLIMRA_LIMIT(session.score, -most, most),
    GLIMRA_LIMIT(session.timeLeft, -most, most),
    GLIMRA_LIMIT(session.mode, 0, 5),
    GLIMRA_LIMIT(session.startLevel, 0, 9),
    GLIMRA_LIMIT(session.queueLength, 0, 6),
};

#undef GLIMRA_LIMIT

using Fault = std::optional<std::string>;

Fault outside(const std::string &field, std::int64_t value, std::int64_t lowest,
              std::int64_t highest)
{
    if (value >= lowest && value <= highest) {
        return {};
    }
    return field + " is " + std::to_string(value) + ", not " + std::to_string(lowest) + " to " +
           std::to_string(highest);
}

std::string element(const char *array, std::size_t index)
{
    return array + ("[" + std::to_string(index) + "]");
}

Fault faultInLimits(const GameApp &app)
{
    for (const Limit &limit : limits) {
        std::int32_t value = 0;
        std::memcpy(&value, reinterpret_cast<const char *>(&app) + limit.offset, sizeof value);
        if (Fault fault = outside(limit.field, value, limit.lowest, limit.highest)) {
            return fault;
        }
    }
    return {};
}

Fault faultInCells(const Playfield &playfield)
{
    for (std::size_t i = 0; i < playfield.cells.size(); ++i) {
        const Cell &cell = playfield.cells[i];
        if (cell.occupied == 0) {
            continue; // its colour means nothing
        }
        const std::string field = element("session.playfield.cells", i) + ".colour";
        if (Fault fault = outside(field, cell.colour, 0, tetrominoCount - 1)) {
            return fault;
        }
    }
    return {};
}

/// The piece must lie within the columns of the well and not below it.
Fault faultInPiece(const Playfield &playfield)
{
    const ActivePiece &piece = playfield.piece;
    const auto &cells = playfield.currentState().cells;
    const auto inside = [&](const CellOffset &cell) {
        const int column = piece.x + cell.x;
        return column >= 0 && column < wellColumns && piece.y + cell.y < wellRows;
    };
    if (std::all_of(cells.begin(), cells.end(), inside)) {
        return {};
    }
    return "session.playfield.piece is outside of the well, at column " + std::to_string(piece.x) +
           ", row " + std::to_string(piece.y);
}

Fault faultInQueue(const PieceQueue &queue)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(queue.count); ++i) {
        const std::string field = element("session.playfield.piece.queue.entries", i);
        const auto type = static_cast<std::int32_t>(queue.entries[i]);
        if (Fault fault = outside(field, type, 0, tetrominoCount - 1)) {
            return fault;
        }
    }
    return {};
}

Fault faultInKeys(const InputState &input)
{
    for (std::size_t i = 0; i < input.slots.size(); ++i) {
        const std::string field = element("input.slots", i) + ".keyCode";
        if (Fault fault = outside(field, input.slots[i].keyCode, 0, 0xFFFF)) {
            return fault;
        }
    }
    return {};
}

Fault faultInTable(const HighScoreTable &table, std::size_t index)
{
    const std::string name = element("highScores", index);
    const auto mode = static_cast<std::int64_t>(index);
    if (Fault fault = outside(name + ".mode", table.mode, mode, mode)) {
        return fault;
    }
    for (std::size_t i = 0; i < table.entries.size(); ++i) {
        const auto &text = table.entries[i].name;
        if (std::find(text.begin(), text.end(), u'\0') == text.end()) {
            return name + element(".entries", i) + ".name has no end";
        }
    }
    return {};
}

Fault faultInTables(const GameApp &app)
{
    for (std::size_t i = 0; i < app.highScores.size(); ++i) {
        if (Fault fault = faultInTable(app.highScores[i], i)) {
            return fault;
        }
    }
    return {};
}

} // namespace

std::optional<std::string> findFault(const GameApp &app)
{
    Fault fault = faultInLimits(app); // which the checks after it rely on
    if (!fault) {
        fault = faultInCells(app.session.playfield);
    }
    if (!fault) {
        fault = faultInPiece(app.session.playfield);
    }
    if (!fault) {
        fault = faultInQueue(app.session.playfield.piece.queue);
    }
    if (!fault) {
        fault = faultInKeys(app.input);
    }
    if (!fault) {
        fault = faultInTables(app);
    }
    return fault;
}
