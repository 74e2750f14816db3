// What becomes invalid, what is drawn, and where.
#include "gdi/screen.h"
#include "support/pixel.h"
#include "user/program_test.h"

namespace {

/// Of windows by their handles, bounds of a part in client coordinates.
using Parts = std::map<std::uint32_t, RECT>;

/// Notes the invalid part of every WM_PAINT and fills it with the colour of the window.
struct Painting : HandheldTest
{
    Painting()
    {
        recorder.handler = [this](HWND window, UINT message, WPARAM, LPARAM) {
            if (message != WM_PAINT) {
                return std::optional<LRESULT>();
            }
            PAINTSTRUCT paint;
            BeginPaint(window, &paint);
            parts[window.value] = paint.rcPaint;
            EndPaint(window, &paint);
            return std::optional<LRESULT>(0);
        };
    }

    /// The windows painted since the last call, with the bounds of what was invalid of each.
    Parts painted()
    {
        host.run();
        return std::exchange(parts, {});
    }

    Parts parts;
};

TEST_F(Painting, WhatAWindowUncoversIsPaintedAndNoMore)
{
    constexpr RECT part{10, 10, 20, 20};
    const HWND back = recorder.window('A', {0, 50, 200, 250});
    const HWND front = recorder.window('B', {50, 100, 100, 150});
    EXPECT_EQ(painted(), (Parts{{back.value, {0, 0, 200, 200}}, //
                                {front.value, {0, 0, 50, 50}}}));
    EXPECT_EQ(painted(), Parts{});

    MoveWindow(front, 60, 100, 50, 50, TRUE);
    EXPECT_EQ(painted(), (Parts{{back.value, {50, 50, 60, 100}}, //
                                {front.value, {0, 0, 50, 50}}}));
    SetActiveWindow(back); // covers the other
    EXPECT_EQ(painted(), (Parts{{back.value, {60, 50, 110, 100}}}));
    InvalidateRect(front, nullptr, TRUE); // nothing of it can be seen
    EXPECT_EQ(painted(), Parts{});
    SetActiveWindow(front);
    DestroyWindow(front);
    EXPECT_EQ(painted(), (Parts{{back.value, {60, 50, 110, 100}}}));
    InvalidateRect(back, &part, FALSE);
    MoveWindow(back, 0, 40, 200, 220, FALSE); // nothing more than before
    EXPECT_EQ(painted(), (Parts{{back.value, {10, 10, 20, 20}}}));
}

TEST_F(Painting, ChildrenAreNotDrawnOverByTheirParent)
{
    const HWND parent = recorder.window('A', {0, 50, 100, 150});
    const HWND child = recorder.window('C', {80, 10, 120, 30}, parent, WS_CHILD | WS_VISIBLE);
    painted();
    InvalidateRect(parent, nullptr, TRUE);
    EXPECT_EQ(painted(), (Parts{{parent.value, {0, 0, 100, 100}}}));
    InvalidateRect(child, nullptr, TRUE); // clipped to its parent
    EXPECT_EQ(painted(), (Parts{{child.value, {0, 0, 20, 20}}}));

    const HDC dc = GetDC(parent);
    const HDC childDC = GetDC(child);
    setPixel(dc, 79, 10, RGB(255, 0, 0));
    setPixel(dc, 80, 10, RGB(255, 0, 0));
    EXPECT_NE(gdi::screen().pixels[60 * 240 + 80], 0xF800);
    EXPECT_EQ(gdi::screen().pixels[60 * 240 + 79], 0xF800);
    MoveWindow(parent, 10, 50, 100, 100, TRUE); // a context goes with its window
    setPixel(childDC, 0, 0, RGB(0, 0, 255));
    EXPECT_EQ(gdi::screen().pixels[60 * 240 + 90], 0x001F);

    ShowWindow(child, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(child));
    EXPECT_EQ(painted(), (Parts{{parent.value, {0, 0, 100, 100}}}));
    DestroyWindow(parent); // and ends with it
    EXPECT_EQ(getPixel(dc, 1, 1), CLR_INVALID);
    EXPECT_EQ(ReleaseDC(parent, dc), 0);
}

TEST_F(Painting, ErasesWhatIsInvalidWithTheBrushOfTheClass)
{
    const HWND window = recorder.window('A', {0, 50, 100, 150});
    painted();
    const HDC dc = GetDC(window);
    setPixel(dc, 5, 5, RGB(255, 0, 0));
    setPixel(dc, 15, 5, RGB(255, 0, 0));
    const RECT part{0, 0, 10, 10};
    InvalidateRect(window, &part, FALSE);
    painted();
    EXPECT_EQ(getPixel(dc, 5, 5), RGB(255, 0, 0));
    InvalidateRect(window, &part, TRUE);
    UpdateWindow(window);
    EXPECT_EQ(getPixel(dc, 5, 5), RGB(255, 255, 255));
    EXPECT_EQ(getPixel(dc, 15, 5), RGB(255, 0, 0));
    EXPECT_EQ(painted(), (Parts{{window.value, {0, 0, 10, 10}}}));
}

TEST_F(Painting, AFrameIsShownBeforeTheHandheldSleepsAndOnlyWhenItChanged)
{
    const HWND window = recorder.window('A', {0, 50, 100, 150});
    painted();
    const int before = host.presented;
    painted();
    EXPECT_EQ(host.presented, before);
    setPixel(GetDC(window), 3, 4, RGB(255, 0, 0));
    painted();
    EXPECT_EQ(host.presented, before + 1);
    EXPECT_EQ(host.lastChanged.left, 3);
    EXPECT_EQ(host.lastChanged.bottom, 55);
}

TEST_F(Painting, TheDisplayTurnsWithItsWindows)
{
    const HWND window = recorder.window('A', {0, 26, 240, 320});
    const HWND box = recorder.window('B', {20, 250, 120, 300}, window, WS_POPUP | WS_VISIBLE);
    painted();
    recorder.noted = {WM_SIZE, WM_MOVE, WM_SETTINGCHANGE};
    host.give({.kind = host::Event::Kind::Turn, .orientation = 1});
    EXPECT_EQ(painted(), (Parts{{window.value, {0, 0, 320, 214}}, //
                                {box.value, {0, 0, 100, 50}}}));
    EXPECT_EQ(recorder.takeLog(),
              (Log{"B:move 20,190", "A:size 320,214", "B:setting", "A:setting"}));

    const auto change = reinterpret_cast<ChangeDisplaySettingsExProc>(
        GetProcAddressW(LoadLibraryW(u"COREDLL.dll"), u"ChangeDisplaySettingsEx"));
    DEVMODEW mode{};
    mode.dmSize = sizeof mode;
    mode.dmFields = DM_DISPLAYORIENTATION;
    EXPECT_EQ(change(nullptr, &mode, {}, CDS_TEST, nullptr), DISP_CHANGE_SUCCESSFUL);
    EXPECT_EQ(mode.dmDisplayOrientation, DMDO_90);
    mode.dmDisplayOrientation = 3;
    EXPECT_EQ(change(nullptr, &mode, {}, CDS_RESET, nullptr), DISP_CHANGE_BADMODE);
    mode.dmDisplayOrientation = DMDO_0;
    EXPECT_EQ(change(nullptr, &mode, {}, CDS_RESET, nullptr), DISP_CHANGE_SUCCESSFUL);
    RECT rect{};
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect, (RECT{0, 26, 240, 320}));
    EXPECT_EQ(gdi::screen().height, 320);
}

} // namespace
