// The limits of the stored record, field by field in its order. These are not checked: what is
// replaced before it is used (handles, `appState`, the title screen), `requestedState`, which has a
// default, and what may hold any value: key codes (an unknown one never fires), tick counts and
// intervals (they are only compared), redraw flags, and flags (any value but 0 is set).
#include "app/settings_check.h"

#include <algorithm>
#include <cstring>

namespace {

/// The signed 32-bit field at `offset` must lie between the two, inclusive.
struct Limit
{
    const char *field;
    std::size_t offset;
    std::int32_t lowest;
    std::int32_t highest;
};

/// More than any game reaches, and small enough that no sum of points overflows.
constexpr std::int32_t most = 1'000'000'000;
constexpr std::int32_t mostLevel = 9'999;
/// How many cells from the well a remembered piece may be.
constexpr std::int32_t far = 999;

#define GLIMRA_LIMIT(field, lowest, highest) \
    Limit { #field, offsetof(AppRecord, field), lowest, highest }

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

Fault faultInLimits(const AppRecord &app)
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

Fault faultInCells(const AppRecord &app)
{
    const auto &cells = app.session.playfield.cells;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string field = element("session.playfield.cells", i) + ".colour";
        const Fault fault = outside(field, cells[i].colour, 0, tetrominoCount - 1);
        if (fault && cells[i].occupied != 0) { // the colour of an empty cell means nothing
            return fault;
        }
    }
    return {};
}

/// The piece must lie within the columns of the well and not below it.
Fault faultInPiece(const AppRecord &app)
{
    const ActivePiece &piece = app.session.playfield.piece;
    const auto inside = [&](const CellOffset &cell) {
        const int column = piece.x + cell.x;
        return column >= 0 && column < wellColumns && piece.y + cell.y < wellRows;
    };
    if (std::ranges::all_of(app.session.playfield.currentState().cells, inside)) {
        return {};
    }
    return "session.playfield.piece is outside of the well, at column " + std::to_string(piece.x) +
           ", row " + std::to_string(piece.y);
}

Fault faultInQueue(const AppRecord &app)
{
    const PieceQueue &queue = app.session.playfield.piece.queue;
    for (std::size_t i = 0; i < static_cast<std::size_t>(queue.count); ++i) {
        const std::string field = element("session.playfield.piece.queue.entries", i);
        const auto type = static_cast<std::int32_t>(queue.entries[i]);
        if (Fault fault = outside(field, type, 0, tetrominoCount - 1)) {
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
        if (std::ranges::find(table.entries[i].name, u'\0') == table.entries[i].name.end()) {
            return name + element(".entries", i) + ".name has no end";
        }
    }
    return {};
}

Fault faultInTables(const AppRecord &app)
{
    for (std::size_t i = 0; i < app.highScores.size(); ++i) {
        if (Fault fault = faultInTable(app.highScores[i], i)) {
            return fault;
        }
    }
    return {};
}

} // namespace

std::optional<std::string> findFault(const AppRecord &app)
{
    // The limits first: the other checks rely on them.
    for (const auto check :
         {faultInLimits, faultInCells, faultInPiece, faultInQueue, faultInTables}) {
        if (Fault fault = check(app)) {
            return fault;
        }
    }
    return {};
}
