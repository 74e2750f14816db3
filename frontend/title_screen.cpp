// The title page's layout, drawing and taps, and the change between the two pages.
#include "frontend/title_screen.h"

#include "engine/timing.h"
#include "frontend/high_score_page.h"
#include "frontend/title_background.h"
#include "render/graphics.h"
#include "render/lettering.h"
#include "render/selection.h"
#include "resources/module.h"
#include "resources/resource.h"

namespace {

constexpr int modeCount = 4;
constexpr int levelCount = 10;
constexpr int fontHeight = 14;
constexpr int pagePeriod = 10000; ///< milliseconds
constexpr UINT timerPeriod = 500; ///< milliseconds
constexpr RECT playButton{70, 200, 170, 230};

constexpr RECT modeButton(int mode)
{
    const LONG left = 15 + 105 * (mode % 2);
    const LONG top = 115 + 20 * (mode / 2);
    return {left, top, left + 104, top + 19};
}

constexpr RECT levelButton(int level)
{
    const LONG left = 15 + 21 * level;
    return {left, 165, left + 20, 184};
}

/// When a page that appears now makes room for the other one.
std::int32_t newPageDeadline() { return timing::after(timing::now(), pagePeriod); }

void drawButton(HDC dc, const RECT &button, LPCWSTR label, bool selected)
{
    if (selected) {
        FillRect(dc, &button, HBRUSH{GetStockObject(WHITE_BRUSH)});
    } else {
        const Selection brush(dc, GetStockObject(BLACK_BRUSH));
        const Selection pen(dc, GetStockObject(WHITE_PEN));
        Rectangle(dc, button.left, button.top, button.right, button.bottom);
    }
    drawText(dc, button, label, DT_CENTER, selected ? RGB(0, 0, 0) : RGB(255, 255, 255));
}

void drawTitlePage(const TitleScreen &screen, HDC source, HDC target)
{
    drawTitleBackground(source, target);
    const BoldFont font(target, fontHeight);
    for (int mode = 0; mode < modeCount; ++mode) {
        drawButton(target, modeButton(mode), loadText(IDS_MODE_0 + static_cast<UINT>(mode)).c_str(),
                   mode == screen.selectedMode);
    }
    for (int level = 0; level < levelCount; ++level) {
        WCHAR digit[33];
        drawButton(target, levelButton(level), _itow(level, digit, 10),
                   level == screen.selectedLevel);
    }
    drawButton(target, playButton, loadText(IDS_PLAY).c_str(), false);
}

} // namespace

TableReference &TableReference::operator=(HighScoreTable *table)
{
    const auto here = reinterpret_cast<std::intptr_t>(this);
    const auto there = reinterpret_cast<std::intptr_t>(table);
    distance_ = table ? static_cast<std::int32_t>(there - here) : 0;
    return *this;
}

HighScoreTable *TableReference::get() const
{
    const auto here = reinterpret_cast<std::intptr_t>(this);
    return distance_ == 0 ? nullptr : reinterpret_cast<HighScoreTable *>(here + distance_);
}

bool TitleScreen::create(HWND)
{
    titleBitmap = loadPicture(windowDC, IDB_TITLE, screenWidth, screenHeight);
    return true;
}

bool TitleScreen::destroy(HWND)
{
    deleteSurface(titleBitmap);
    return true;
}

bool TitleScreen::start(HWND window, HighScoreTable *newTable)
{
    table = newTable;
    showTitle();
    paint(window, HDC{});
    SetTimer(window, mainTimer, timerPeriod, nullptr);
    return true;
}

bool TitleScreen::stop(HWND window)
{
    KillTimer(window, mainTimer);
    return true;
}

bool TitleScreen::tick(HWND window)
{
    if (timing::between(pageDeadline, timing::now()) > 0) {
        page = page == TitlePage::Title ? TitlePage::HighScores : TitlePage::Title;
        pageDeadline = newPageDeadline();
        paint(window, HDC{});
    }
    return true;
}

bool TitleScreen::paint(HWND, HDC target)
{
    const HDC shown = target ? target : windowDC;
    const HDC source = CreateCompatibleDC(shown);
    const HDC composition = CreateCompatibleDC(shown);
    {
        const Selection back(composition, screenSurface->bitmap);
        if (!table) {
            showTitle();
        }
        if (page == TitlePage::HighScores) {
            drawHighScorePage(*table.get(), source, composition);
        } else {
            drawTitlePage(*this, source, composition);
        }
        BitBlt(shown, 0, 0, screenWidth, screenHeight, composition, 0, 0, SRCCOPY);
    }
    DeleteDC(source);
    DeleteDC(composition);
    return true;
}

void TitleScreen::showTitle()
{
    page = TitlePage::Title;
    pageDeadline = newPageDeadline();
}

void TitleScreen::showHighScores(HWND window)
{
    page = TitlePage::HighScores;
    pageDeadline = newPageDeadline();
    paint(window, HDC{});
}

int TitleScreen::hitTest(int x, int y) const
{
    if (page == TitlePage::HighScores) {
        return TitleHit::LeaveHighScores;
    }
    const auto hit = [&](const RECT &button) { return PtInRect(&button, POINT{x, y}) != FALSE; };
    for (int mode = 0; mode < modeCount; ++mode) {
        if (hit(modeButton(mode))) {
            return TitleHit::ModeBase + mode;
        }
    }
    for (int level = 0; level < levelCount; ++level) {
        if (hit(levelButton(level))) {
            return TitleHit::LevelBase + level;
        }
    }
    return hit(playButton) ? TitleHit::Play : TitleHit::None;
}
