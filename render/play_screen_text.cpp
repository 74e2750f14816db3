// The play screen's text: the four values along the bottom and the messages over the well. The
// captions of the values are part of the backdrops.
#include "render/lettering.h"
#include "render/play_screen.h"
#include "render/selection.h"
#include "resources/module.h"
#include "resources/resource.h"

namespace {

constexpr RECT scoreRect{0, 249, 80, 267};
constexpr RECT levelRect{100, 249, 140, 267};
constexpr RECT linesRect{146, 249, 186, 267};
constexpr RECT timeRect{192, 249, 232, 267};
constexpr RECT endRect1{22, 91, 132, 121};
constexpr RECT endRect2{22, 121, 132, 149};

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF black = RGB(0, 0, 0);

constexpr int overlayFontHeight = 32; ///< pixels

void drawString(const GameSession &session, const RECT &rect, LPCWSTR text, UINT alignment)
{
    eraseRect(session, rect);
    const Selection font(session.backDC, statsFont);
    SetBkMode(session.backDC, TRANSPARENT);
    drawText(session.backDC, rect, text, alignment, white);
}

void drawNumber(const GameSession &session, const RECT &rect, int value, UINT alignment)
{
    WCHAR text[33];
    drawString(session, rect, _itow(value, text, 10), alignment);
}

/// Draws nothing outside the Ultra modes.
void drawTime(const GameSession &session)
{
    if (!session.isUltra()) {
        return;
    }
    const int seconds = session.timeLeft / timing::ticksPerSecond;
    WCHAR text[33];
    wsprintfW(text, u"%d:%02d", seconds / 60, seconds % 60);
    drawString(session, timeRect, text, DT_CENTER);
}

/// One line of a message: white, with its black shadow 3 pixels below and to the right.
void drawShadowedText(const GameSession &session, RECT rect, LPCWSTR text)
{
    OffsetRect(&rect, 1, 1);
    drawText(session.backDC, rect, text, DT_CENTER, black);
    OffsetRect(&rect, -3, -3);
    drawText(session.backDC, rect, text, DT_CENTER, white);
}

} // namespace

void drawValues(const GameSession &session)
{
    if ((session.dirty & dirty::lines) != 0) {
        drawNumber(session, linesRect, session.lines, DT_CENTER);
    }
    if ((session.dirty & dirty::score) != 0) {
        drawNumber(session, scoreRect, session.score, DT_RIGHT);
    }
    if ((session.dirty & dirty::level) != 0) {
        drawNumber(session, levelRect, session.level, DT_CENTER);
    }
    if ((session.dirty & dirty::time) != 0) {
        drawTime(session);
    }
}

void drawPausedOverlay(const GameSession &session)
{
    eraseRect(session, boardRect);
    const BoldFont overlayFont(session.backDC, overlayFontHeight);
    drawShadowedText(session, boardRect, loadText(IDS_PAUSED).c_str());
}

void drawEndOverlay(const GameSession &session)
{
    const bool outOfTime = session.isUltra() && session.timeLeft <= 0;
    const UINT first = outOfTime ? IDS_OUT_OF_TIME_1 : IDS_GAME_OVER_1;
    const UINT second = outOfTime ? IDS_OUT_OF_TIME_2 : IDS_GAME_OVER_2;
    const BoldFont overlayFont(session.backDC, overlayFontHeight);
    drawShadowedText(session, endRect1, loadText(first).c_str());
    drawShadowedText(session, endRect2, loadText(second).c_str());
}
