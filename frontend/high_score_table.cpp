// Reads the default tables, ranks results and puts them in their place.
#include "frontend/high_score_table.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "resources/module.h"

namespace {

/// The fields of a comma-separated text; empty ones are left out.
std::vector<std::u16string> splitFields(std::u16string_view text)
{
    std::vector<std::u16string> fields;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(u','), text.size());
        if (length > 0) {
            fields.emplace_back(text.substr(0, length));
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return fields;
}

} // namespace

void HighScoreEntry::set(LPCWSTR newName, std::int32_t newScore, std::int32_t newLines,
                         std::int32_t newLevel)
{
    name.fill(u'\0');
    lstrcpynW(name.data(), newName, static_cast<int>(name.size()));
    score = newScore;
    lines = newLines;
    level = newLevel;
}

void HighScoreTable::loadDefaults(UINT stringId)
{
    const std::vector<std::u16string> fields = splitFields(loadText(stringId));
    for (std::size_t i = 0; i < entries.size() && 4 * i + 3 < fields.size(); ++i) {
        const std::u16string *field = &fields[4 * i];
        entries[i].set(field[0].c_str(), _wtoi(field[1].c_str()), _wtoi(field[2].c_str()),
                       _wtoi(field[3].c_str()));
    }
}

int HighScoreTable::rankOf(std::int32_t score) const
{
    int rank = size;
    while (rank > 0 && entries[static_cast<std::size_t>(rank - 1)].score < score) {
        --rank;
    }
    return rank < size ? rank : -1;
}

int HighScoreTable::insert(LPCWSTR name, std::int32_t score, std::int32_t lines, std::int32_t level)
{
    const int rank = rankOf(score);
    if (rank >= 0) {
        std::copy_backward(entries.begin() + rank, entries.end() - 1, entries.end());
        entries[static_cast<std::size_t>(rank)].set(name, score, lines, level);
    }
    return rank;
}
