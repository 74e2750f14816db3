// The life of windows, their order, and their values.
#include <gtest/gtest.h>

#include "user/inspect.h"
#include "user/recorder.h"

namespace {

using Log = std::vector<std::string>;
constexpr DWORD child = WS_CHILD | WS_VISIBLE;

TEST(Windows, AreDestroyedFromTheOutsideInWithWhatTheyOwn)
{
    Recorder recorder;
    const HWND main = recorder.window('M', {0, 50, 100, 150});
    const HWND inner = recorder.window('C', {0, 0, 50, 50}, main, child);
    recorder.window('G', {0, 0, 10, 10}, inner, child);
    const HWND dialog = recorder.window('D', {0, 60, 50, 80}, main, WS_POPUP | WS_VISIBLE);
    recorder.window('B', {0, 0, 10, 10}, dialog, child);
    recorder.noted = {WM_DESTROY, WM_NCDESTROY};
    EXPECT_TRUE(DestroyWindow(main));
    EXPECT_EQ(recorder.takeLog(), (Log{"D:destroy", "B:destroy", "B:gone", "D:gone", "M:destroy",
                                       "C:destroy", "G:destroy", "G:gone", "C:gone", "M:gone"}));
    EXPECT_EQ(inspect::liveObjects(), std::vector<std::string>{});
}

TEST(Windows, MayBeDestroyedByAnyProcedureAtAnyMessage)
{
    // Whatever message destroys whichever window, nothing may break and both must be gone.
    for (const UINT killer : {WM_CREATE, WM_SIZE, WM_SHOWWINDOW, WM_ACTIVATE, WM_SETFOCUS,
                              WM_ERASEBKGND, WM_PAINT, WM_LBUTTONDOWN, WM_KEYDOWN, WM_TIMER,
                              WM_CAPTURECHANGED, WM_KILLFOCUS, WM_DESTROY, WM_NCDESTROY})
    {
        Recorder recorder;
        const HWND main = recorder.window('M', {0, 50, 100, 150});
        recorder.handler = [&](HWND window, UINT message, WPARAM, LPARAM) {
            if (message == killer && window != main) {
                DestroyWindow(window);
                DestroyWindow(main);
            }
            return std::optional<LRESULT>();
        };
        const HWND dialog = recorder.window('D', {0, 60, 50, 80}, main, WS_POPUP | WS_VISIBLE);
        SetTimer(dialog, 1, 5, nullptr);
        const HWND control = recorder.window('C', {0, 0, 50, 20}, dialog, child);
        SetFocus(control);
        SetCapture(control);
        recorder.host.tap(5, 65);
        recorder.host.key(VK_LEFT, true);
        recorder.host.run(10);
        SetFocus(main);
        DestroyWindow(dialog);
        EXPECT_FALSE(IsWindow(dialog)) << "message " << killer;
        EXPECT_FALSE(IsWindow(control)) << "message " << killer;
        EXPECT_FALSE(IsWindow(main)) << "message " << killer;
        EXPECT_FALSE(GetActiveWindow());
        EXPECT_FALSE(GetFocus());
        EXPECT_FALSE(GetCapture());
    }
}

TEST(Windows, ThatRefuseToBeMadeAreGone)
{
    Recorder recorder;
    recorder.handler = [](HWND, UINT message, WPARAM, LPARAM) {
        return message == WM_CREATE ? std::optional<LRESULT>(-1) : std::nullopt;
    };
    EXPECT_FALSE(recorder.window('A', {0, 50, 100, 150}));
    EXPECT_EQ(inspect::liveObjects(), std::vector<std::string>{});
    EXPECT_FALSE(CreateWindowExW(0, u"NONE", u"", 0, 0, 0, 1, 1, {}, {}, {}, nullptr));
    EXPECT_FALSE(recorder.window('A', {0, 0, 1, 1}, HWND{4711}, child));
}

TEST(Windows, StandBelowTheTitleBarByDefault)
{
    Recorder recorder;
    const HWND window =
        CreateWindowExW(0, u"TEST", u"Title", WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, {}, {}, {}, nullptr);
    RECT rect{};
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.top, 26);
    EXPECT_EQ(rect.right, 240);
    EXPECT_EQ(rect.bottom, 320);
    EXPECT_EQ(recorder.host.title, u"Title");
}

/// The letters of the test's top-level windows, front to back.
std::string orderOf(const std::map<std::uint32_t, char> &names)
{
    std::string order;
    for (const inspect::WindowView &view : inspect::windows()) {
        const auto found = names.find(view.window.value);
        order += found != names.end() ? std::string(1, found->second) : "";
    }
    return order;
}

TEST(Windows, KeepTheirOrder)
{
    Recorder recorder;
    const RECT rect{0, 50, 100, 150};
    const HWND a = recorder.window('A', rect);
    const HWND b = recorder.window('B', rect);
    const HWND owned = recorder.window('O', rect, a, WS_POPUP | WS_VISIBLE);
    const HWND top = recorder.window('T', rect, {}, WS_VISIBLE, WS_EX_TOPMOST | WS_EX_NOACTIVATE);
    const std::map<std::uint32_t, char> names = {
        {a.value, 'A'}, {b.value, 'B'}, {owned.value, 'O'}, {top.value, 'T'}};
    EXPECT_EQ(orderOf(names), "TOBA");
    SetActiveWindow(b);
    EXPECT_EQ(orderOf(names), "TBOA");
    SetActiveWindow(a); // what it owns goes with it
    EXPECT_EQ(orderOf(names), "TOAB");
    SetWindowPos(a, b, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(orderOf(names), "TBOA");
    SetWindowPos(b, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(orderOf(names), "BTOA");
}

TEST(Windows, ChildrenStayInTheOrderOfTheirMaking)
{
    Recorder recorder;
    const HWND parent = recorder.window('A', {10, 50, 100, 150});
    const HWND first = recorder.window('1', {1, 2, 11, 12}, parent, child);
    const HWND second = recorder.window('2', {1, 2, 11, 12}, parent, child);
    EXPECT_EQ(GetWindow(parent, GW_CHILD), first);
    EXPECT_EQ(GetWindow(first, GW_HWNDNEXT), second);
    EXPECT_FALSE(GetWindow(second, GW_HWNDNEXT));
    EXPECT_EQ(GetParent(second), parent);
    recorder.noted = {WM_MOVE, WM_SIZE};
    MoveWindow(parent, 20, 60, 90, 100, TRUE); // children go along and are not told
    MoveWindow(second, 5, 6, 10, 20, TRUE);
    EXPECT_EQ(recorder.takeLog(), (Log{"A:move 20,60", "2:move 5,6", "2:size 10,20"}));
    POINT point{0, 0};
    ClientToScreen(second, &point);
    EXPECT_EQ(point.x, 25);
    EXPECT_EQ(point.y, 66);
}

TEST(Windows, KeepValuesAndTexts)
{
    Recorder recorder;
    const HWND window = recorder.window('A', {0, 50, 100, 150});
    const auto address = reinterpret_cast<LONG_PTR>(&recorder);
    EXPECT_EQ(SetWindowLongW(window, GWL_USERDATA, address), 0);
    EXPECT_EQ(GetWindowLongW(window, GWL_USERDATA), address);
    SetWindowLongW(window, DWL_USER, 5); // not a dialog
    EXPECT_EQ(GetWindowLongW(window, DWL_USER), 0);
    SetWindowTextW(window, u"12345");
    WCHAR text[4] = u"???";
    EXPECT_EQ(GetWindowTextW(window, text, 4), 3);
    EXPECT_EQ(std::u16string(text), u"123");
    EXPECT_EQ(GetWindowTextLengthW(window), 5);
}

} // namespace
