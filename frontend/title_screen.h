// The title screen: the page with mode, level and Play buttons and the high-score page of the
// selected mode, each shown for ten seconds in turn.
// The record is stored byte for byte with the settings, but is not used in the next run.
#pragma once

#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "frontend/high_score_table.h"

enum class TitlePage : std::int32_t
{
    Title = 0,
    HighScores = 1,
};

/// What a tap hits. Mode button i is ModeBase + i, level button j is LevelBase + j.
namespace TitleHit {
constexpr int None = 0;
constexpr int Play = 1;
constexpr int LeaveHighScores = 2;
constexpr int ModeBase = 10;
constexpr int LevelBase = 20;
} // namespace TitleHit

/// A pointer to a HighScoreTable in four bytes, the size of a pointer on the handheld: the distance
/// from here to the table. Both are members of one object, so the distance stays right when that is
/// copied.
class TableReference
{
public:
    TableReference &operator=(HighScoreTable *table);
    HighScoreTable *get() const;
    explicit operator bool() const { return distance_ != 0; }

private:
    std::int32_t distance_ = 0; ///< bytes; 0 for none
};

struct TitleScreen
{
    TitlePage page;
    std::int32_t pageDeadline; ///< the moment after which the page changes
    TableReference table;      ///< what the high-score page shows
    std::int32_t selectedMode; ///< drawn highlighted
    std::int32_t selectedLevel;

    // Each of these returns true.

    /// Loads the background picture.
    bool create(HWND window);
    bool destroy(HWND window);
    /// Shows the title page and starts the timer.
    bool start(HWND window, HighScoreTable *newTable);
    bool stop(HWND window);
    /// Changes the page when its time is over.
    bool tick(HWND window);
    /// Composes the page and copies it to `target`, or to the window's own device context when
    /// that is none.
    bool paint(HWND window, HDC target);

    /// Makes the title page the current one for ten seconds, without drawing it.
    void showTitle();
    /// Shows the high-score page for ten seconds.
    void showHighScores(HWND window);
    /// What a tap at a point of the client area hits on the page that is shown: a TitleHit.
    int hitTest(int x, int y) const;
};

static_assert(sizeof(TitleScreen) == 20);
