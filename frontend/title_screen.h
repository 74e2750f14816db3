// The title screen: the page with mode, level and Play buttons, taking turns every ten seconds
// with the high-score page of the selected mode.
// The record is stored byte for byte with the settings, but nothing of it outlives a run.
#pragma once

#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "frontend/high_score_table.h"
#include "render/surface.h"

enum class TitlePage : std::int32_t
{
    Title = 0,
    HighScores = 1,
};

/// What a tap on the title screen means. Mode button i is ModeBase + i, level button j is
/// LevelBase + j.
namespace TitleHit {
constexpr int None = 0;
constexpr int Play = 1;
constexpr int LeaveHighScores = 2;
constexpr int ModeBase = 10;
constexpr int LevelBase = 20;
} // namespace TitleHit

/// A pointer to a HighScoreTable in the four bytes that a pointer has on the handheld: the
/// distance from here to there. Table and pointer belong to one object (the GameApp) and are
/// copied only together with it.
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
    /// Milliseconds that each page stays.
    static constexpr DWORD pagePeriod = 10000;
    /// Milliseconds of the timer while the title screen is shown.
    static constexpr UINT timerPeriod = 500;

    TitlePage page;
    std::int32_t pageDeadline; ///< tick count after which the page changes
    TableReference table;      ///< what the high-score page shows
    std::int32_t selectedMode; ///< drawn highlighted
    std::int32_t selectedLevel;

    /// The background picture. Always true.
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
    /// Makes the title page the current one for a full period, without drawing it.
    void showTitle();
    /// Shows the high-score page for a full period.
    void showHighScores(HWND window);
    /// What lies at a point of the client area, as the pages are shown: a TitleHit.
    int hitTest(int x, int y) const;
};

/// The picture behind both pages, 240 by 268; owned by the title screen.
extern Surface *titleBitmap;
/// Copies it to `target`; it is selected into `source` meanwhile.
void drawTitleBackground(HDC source, HDC target);

static_assert(sizeof(TitleScreen) == 20);
