// The play screen's text: the four values along the bottom and the messages over the well. The
// captions of the values are part of the backdrops.
#include "app/window.h"
#include "render/play_screen.h"
#include "render/selection.h"
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

constexpr UINT textFlags = DT_VCENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX;
constexpr int overlayFontHeight = 32;

void drawString(const GameSession &session, const RECT &rect, LPCWSTR text, UINT alignment,
                COLORREF colour)
{
    restoreBackdrop(session, rect);
    const Selection font(session.backDC, statsFont);
    SetTextColor(session.backDC, colour);
    SetBkMode(session.backDC, TRANSPARENT);
    RECT place = rect;
    DrawTextW(session.backDC, text, -1, &place, alignment | textFlags);
}

void drawNumber(const GameSession &session, const RECT &rect, int value, UINT alignment,
                COLORREF colour)
{
    WCHAR text[33];
    drawString(session, rect, _itow(value, text, 10), alignment, colour);
}

/// One line of a message: white, with its black shadow 3 pixels below and to the right.
void drawShadowedText(const GameSession &session, RECT rect, LPCWSTR text)
{
    OffsetRect(&rect, 1, 1);
    SetTextColor(session.backDC, black);
    DrawTextW(session.backDC, text, -1, &rect, DT_CENTER | textFlags);
    OffsetRect(&rect, -3, -3);
    SetTextColor(session.backDC, white);
    DrawTextW(session.backDC, text, -1, &rect, DT_CENTER | textFlags);
}

/// The large font of the messages, selected into `backDC` as long as this object lives.
class OverlayFont
{
public:
    explicit OverlayFont(HDC dc)
        : dc_(dc), font_(createBoldFont(overlayFontHeight)), previous_(SelectObject(dc, font_))
    {
        SetBkMode(dc, TRANSPARENT);
    }
    ~OverlayFont()
    {
        SelectObject(dc_, previous_);
        DeleteObject(font_);
    }
    OverlayFont(const OverlayFont &) = delete;
    OverlayFont &operator=(const OverlayFont &) = delete;

private:
    HDC dc_;
    HFONT font_;
    HGDIOBJ previous_;
};

void drawMessage(const GameSession &session, const RECT &rect, UINT stringId)
{
    WCHAR text[64];
    LoadStringW(moduleInstance, stringId, text, 64);
    drawShadowedText(session, rect, text);
}

} // namespace

void drawScore(const GameSession &session)
{
    drawNumber(session, scoreRect, session.score, DT_RIGHT, white);
}

void drawLevel(const GameSession &session)
{
    drawNumber(session, levelRect, session.level, DT_CENTER, white);
}

void drawLines(const GameSession &session)
{
    drawNumber(session, linesRect, session.lines, DT_CENTER, white);
}

void drawTime(const GameSession &session)
{
    if (!session.isUltra()) {
        return;
    }
    const int seconds = session.timeLeft / timing::ticksPerSecond;
    WCHAR text[33];
    wsprintfW(text, u"%d:%02d", seconds / 60, seconds % 60);
    drawString(session, timeRect, text, DT_CENTER, white);
}

void drawPausedOverlay(const GameSession &session)
{
    restoreBackdrop(session, boardRect);
    const OverlayFont font(session.backDC);
    drawMessage(session, boardRect, IDS_PAUSED);
}

void drawEndOverlay(const GameSession &session)
{
    const bool outOfTime = session.isUltra() && session.timeLeft <= 0;
    const OverlayFont font(session.backDC);
    drawMessage(session, endRect1, outOfTime ? IDS_OUT_OF_TIME_1 : IDS_GAME_OVER_1);
    drawMessage(session, endRect2, outOfTime ? IDS_OUT_OF_TIME_2 : IDS_GAME_OVER_2);
}
