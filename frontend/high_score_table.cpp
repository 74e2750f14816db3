// Reads the default tables, ranks results and puts them in their place.
#include "frontend/high_score_table.h"

#include <algorithm>
#include <string_view>

#include "app/window.h"

namespace {

/// Takes the fields of a comma-separated text, one by one; empty ones are passed over.
class Fields
{
public:
    explicit Fields(LPWSTR text) : rest_(text) {}

    /// The next field, terminated in place; null at the end.
    LPCWSTR next()
    {
        while (*rest_ == u',') {
            ++rest_;
        }
        if (*rest_ == u'\0') {
            return nullptr;
        }
        LPCWSTR field = rest_;
        while (*rest_ != u',' && *rest_ != u'\0') {
            ++rest_;
        }
        if (*rest_ == u',') {
            *rest_++ = u'\0';
        }
        return field;
    }

private:
    LPWSTR rest_;
};

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
    std::array<WCHAR, 256> text{};
    LoadStringW(moduleInstance, stringId, text.data(), static_cast<int>(text.size()));
    Fields fields(text.data());
    for (HighScoreEntry &entry : entries) {
        LPCWSTR name = fields.next();
        LPCWSTR score = fields.next();
        LPCWSTR lines = fields.next();
        LPCWSTR level = fields.next();
        if (level == nullptr) {
            return;
        }
        entry.set(name, _wtoi(score), _wtoi(lines), _wtoi(level));
    }
}

int HighScoreTable::rankOf(std::int32_t score) const
{
    if (entries.back().score >= score) {
        return -1;
    }
    const auto below = std::find_if(entries.rbegin() + 1, entries.rend(),
                                    [&](const HighScoreEntry &e) { return e.score >= score; });
    return static_cast<int>(entries.rend() - below);
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

int HighScoreTable::insert(const HighScoreEntry &entry)
{
    return insert(entry.name.data(), entry.score, entry.lines, entry.level);
}
