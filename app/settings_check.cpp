// The limits of the stored record, field by field in its order. These are not checked: what is
// replaced before it is used (handles, `appState`, the title screen), `requestedState`, which has a
// default, and what may hold any value: key codes (an unknown one never fires), tick counts and
// intervals (they are only compared), redraw flags, and flags (any value but 0 is set).
#include "app/settings_check.h"

#include <algorithm>

namespace {

using Fault = std::optional<std::string>;

/// A field must lie between the two, inclusive.
struct Limit
{
    std::string field;
    std::int64_t value;
    std::int64_t lowest;
    std::int64_t highest;
};

/// More than any game reaches, and small enough that no sum of points overflows.
constexpr std::int32_t most = 1'000'000'000;
constexpr std::int32_t mostLevel = 9'999;
/// How many cells from the well a remembered piece may be.
constexpr std::int32_t far = 999;

Fault outside(const Limit &limit)
{
    if (limit.value >= limit.lowest && limit.value <= limit.highest) {
        return {};
    }
    return limit.field + " is " + std::to_string(limit.value) + ", not " +
           std::to_string(limit.lowest) + " to " + std::to_string(limit.highest);
}

std::string element(const char *array, std::size_t index)
{
    return array + ("[" + std::to_string(index) + "]");
}

#define GLIMRA_LIMIT(field, lowest, highest) \
    Limit { #field, number(app.field), lowest, highest }

Fault faultInNumbers(const AppRecord &app)
{
    const auto number = [](auto field) { return static_cast<std::int64_t>(field); };
    const Limit limits[] = {
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
    for (const Limit &limit : limits) {
        if (Fault fault = outside(limit)) {
            return fault;
        }
    }
    return {};
}

#undef GLIMRA_LIMIT

Fault faultInCells(const AppRecord &app)
{
    const auto &cells = app.session.playfield.cells;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string field = element("session.playfield.cells", i) + ".colour";
        Fault fault = outside({field, cells[i].colour, 0, tetrominoCount - 1});
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
    const auto &cells = app.session.playfield.currentState().cells;
    if (std::all_of(cells.begin(), cells.end(), inside)) {
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
        if (Fault fault = outside({field, type, 0, tetrominoCount - 1})) {
            return fault;
        }
    }
    return {};
}

Fault faultInTables(const AppRecord &app)
{
    for (std::size_t i = 0; i < app.highScores.size(); ++i) {
        const HighScoreTable &table = app.highScores[i];
        const std::string name = element("highScores", i);
        const auto mode = static_cast<std::int64_t>(i);
        if (Fault fault = outside({name + ".mode", table.mode, mode, mode})) {
            return fault;
        }
        for (std::size_t row = 0; row < table.entries.size(); ++row) {
            const auto &text = table.entries[row].name;
            if (std::find(text.begin(), text.end(), u'\0') == text.end()) {
                return name + element(".entries", row) + ".name has no end";
            }
        }
    }
    return {};
}

} // namespace

std::optional<std::string> findFault(const AppRecord &app)
{
    // The numbers first: the other checks rely on them.
    for (const auto check :
         {faultInNumbers, faultInCells, faultInPiece, faultInQueue, faultInTables}) {
        if (Fault fault = check(app)) {
            return fault;
        }
    }
    return {};
}
