// The ranked results of one game mode: eight entries, best score first.
// The records are stored byte for byte with the settings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <windows.h>

struct HighScoreEntry
{
    static constexpr std::size_t maxNameLength = 11;

    std::int32_t score; ///< the ranking key; 0 marks an empty row
    std::int32_t lines;
    std::int32_t level;
    std::array<WCHAR, maxNameLength + 1> name; ///< terminated

    /// Sets all four; a name longer than 11 code units is cut.
    void set(LPCWSTR newName, std::int32_t newScore, std::int32_t newLines, std::int32_t newLevel);
    friend bool operator==(const HighScoreEntry &, const HighScoreEntry &) = default;
};

struct HighScoreTable
{
    static constexpr int size = 8;

    std::int32_t mode; ///< the game mode it serves
    std::array<HighScoreEntry, size> entries;

    /// Fills the entries from a string resource "name,score,lines,level,name,...". When that has
    /// fewer than eight, the rest of the entries stay as they are.
    void loadDefaults(UINT stringId);
    /// The index that a result would get, below those with an equal score; -1 when it does not
    /// beat the eighth.
    int rankOf(std::int32_t score) const;
    /// Puts a result in its place; the eighth drops out. Returns the index, or -1.
    int insert(LPCWSTR name, std::int32_t score, std::int32_t lines, std::int32_t level);
    int insert(const HighScoreEntry &entry)
    {
        return insert(entry.name.data(), entry.score, entry.lines, entry.level);
    }
};

static_assert(sizeof(HighScoreEntry) == 36);
static_assert(offsetof(HighScoreEntry, name) == 12);
static_assert(sizeof(HighScoreTable) == 292);
