// The title page's layout, drawing and taps, and the turns that the two pages take.
#include "frontend/title_screen.h"

#include "app/window.h"
#include "engine/game_session.h"
#include "frontend/high_score_page.h"
#include "render/graphics.h"
#include "render/selection.h"
#include "resources/resource.h"

namespace {

constexpr int modeCount = 4;
constexpr int levelCount = 10;
constexpr int fontHeight = 14;
constexpr RECT playButton{70, 200, 170, 230};

/// Mode buttons stand two by two.
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

/// The moment at which a page that is shown from now on gives way.
std::int32_t newPageDeadline()
{
    return static_cast<std::int32_t>(GetTickCount() + TitleScreen::pagePeriod);
}

void drawButton(HDC dc, const RECT &button, LPCWSTR label, bool selected)
{
    if (selected) {
        FillRect(dc, &button, HBRUSH{GetStockObject(WHITE_BRUSH)});
        SetTextColor(dc, RGB(0, 0, 0));
    } else {
        const Selection brush(dc, GetStockObject(BLACK_BRUSH));
        const Selection pen(dc, GetStockObject(WHITE_PEN));
        Rectangle(dc, button.left, button.top, button.right, button.bottom);
        SetTextColor(dc, RGB(255, 255, 255));
    }
    RECT place = button;
    DrawTextW(dc, label, -1, &place,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX);
}

void drawButton(HDC dc, const RECT &button, UINT labelId, bool selected)
{
    WCHAR label[200];
    LoadStringW(moduleInstance, labelId, label, 200);
    drawButton(dc, button, label, selected);
}

void drawButtons(HDC dc, int selectedMode, int selectedLevel)
{
    for (int mode = 0; mode < modeCount; ++mode) {
        drawButton(dc, modeButton(mode), IDS_MODE_0 + static_cast<UINT>(mode),
                   mode == selectedMode);
    }
    for (int level = 0; level < levelCount; ++level) {
        WCHAR digit[33];
        drawButton(dc, levelButton(level), _itow(level, digit, 10), level == selectedLevel);
    }
    drawButton(dc, playButton, IDS_PLAY, false);
}

void drawTitlePage(const TitleScreen &screen, HDC source, HDC target)
{
    drawTitleBackground(source, target);
    const HFONT font = createBoldFont(fontHeight);
    {
        const Selection selected(target, font);
        SetBkMode(target, TRANSPARENT);
        drawButtons(target, screen.selectedMode, screen.selectedLevel);
    }
    DeleteObject(font);
}

} // namespace

Surface *titleBitmap = nullptr;

void drawTitleBackground(HDC source, HDC target)
{
    const Selection background(source, titleBitmap->bitmap);
    BitBlt(target, 0, 0, screenWidth, screenHeight, source, 0, 0, SRCCOPY);
}

TableReference &TableReference::operator=(HighScoreTable *table)
{
    const auto here = reinterpret_cast<std::intptr_t>(this);
    distance_ = table == nullptr
                    ? 0
                    : static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(table) - here);
    return *this;
}

HighScoreTable *TableReference::get() const
{
    if (distance_ == 0) {
        return nullptr;
    }
    return reinterpret_cast<HighScoreTable *>(reinterpret_cast<std::intptr_t>(this) + distance_);
}

bool TitleScreen::create(HWND window)
{
    (void)window;
    titleBitmap = loadPicture(windowDC, IDB_TITLE, screenWidth, screenHeight);
    return true;
}

bool TitleScreen::destroy(HWND window)
{
    (void)window;
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
    // A difference of tick counts is right across their wrap.
    const auto overdue =
        static_cast<std::int32_t>(GetTickCount() - static_cast<DWORD>(pageDeadline));
    if (overdue > 0) {
        page = page == TitlePage::Title ? TitlePage::HighScores : TitlePage::Title;
        pageDeadline = newPageDeadline();
        paint(window, HDC{});
    }
    return true;
}

bool TitleScreen::paint(HWND window, HDC target)
{
    (void)window;
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
