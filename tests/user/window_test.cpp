// The life of windows, their order, and their values.
#include "user/program_test.h"

namespace {

constexpr DWORD child = WS_CHILD | WS_VISIBLE;
constexpr RECT rect{0, 50, 100, 150};

using Windows = HandheldTest;

TEST_F(Windows, AreDestroyedFromTheOutsideInWithWhatTheyOwn)
{
    const HWND main = recorder.window('M', rect);
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

TEST(WindowLife, MayEndByAnyProcedureAtAnyMessage)
{
    // Whatever message destroys whichever window, nothing may break and both must be gone.
    for (const UINT killer : {WM_CREATE, WM_SIZE, WM_SHOWWINDOW, WM_ACTIVATE, WM_SETFOCUS,
                              WM_ERASEBKGND, WM_PAINT, WM_LBUTTONDOWN, WM_KEYDOWN, WM_TIMER,
                              WM_CAPTURECHANGED, WM_KILLFOCUS, WM_DESTROY, WM_NCDESTROY})
    {
        Recorder recorder;
        const HWND main = recorder.window('M', rect);
        recorder.when(killer, [&](HWND window, WPARAM, LPARAM) {
            if (window != main) {
                DestroyWindow(window);
                DestroyWindow(main);
            }
        });
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
        EXPECT_FALSE(IsWindow(dialog) || IsWindow(control) || IsWindow(main)) << killer;
        EXPECT_FALSE(GetActiveWindow() || GetFocus() || GetCapture()) << killer;
    }
}

TEST_F(Windows, ThatRefuseToBeMadeAreGone)
{
    recorder.handler = [](HWND, UINT message, WPARAM, LPARAM) {
        return message == WM_CREATE ? std::optional<LRESULT>(-1) : std::nullopt;
    };
    EXPECT_FALSE(recorder.window('A', rect));
    EXPECT_EQ(inspect::liveObjects(), std::vector<std::string>{});
    EXPECT_FALSE(CreateWindowExW(0, u"NONE", u"", 0, 0, 0, 1, 1, {}, {}, {}, nullptr));
    EXPECT_FALSE(recorder.window('A', {0, 0, 1, 1}, HWND{4711}, child));
}

TEST_F(Windows, KeepTheirOrder)
{
    const HWND a = recorder.window('A', rect);
    const HWND b = recorder.window('B', rect);
    recorder.window('O', rect, a, WS_POPUP | WS_VISIBLE);
    recorder.window('T', rect, {}, WS_VISIBLE, WS_EX_TOPMOST | WS_EX_NOACTIVATE);
    EXPECT_EQ(recorder.order(), "T-OBA");
    SetActiveWindow(b);
    EXPECT_EQ(recorder.order(), "T-BOA");
    SetActiveWindow(a); // what it owns goes with it
    EXPECT_EQ(recorder.order(), "T-OAB");
}

TEST_F(Windows, ChildrenStayInTheOrderOfTheirMaking)
{
    const HWND parent = recorder.window('A', {10, 50, 100, 150});
    const HWND first = recorder.window('1', {1, 2, 11, 12}, parent, child);
    const HWND second = recorder.window('2', {1, 2, 11, 12}, parent, child);
    EXPECT_EQ(GetWindow(parent, GW_CHILD), first);
    EXPECT_EQ(GetWindow(first, GW_HWNDNEXT), second);
    EXPECT_FALSE(GetWindow(second, GW_HWNDNEXT));
    EXPECT_EQ(GetParent(second), parent);
    recorder.noted = {WM_MOVE, WM_SIZE};
    MoveWindow(parent, 20, 60, 90, 100, TRUE); // children go along without a message
    MoveWindow(second, 5, 6, 10, 20, TRUE);
    EXPECT_EQ(recorder.takeLog(), (Log{"A:move 20,60", "2:move 5,6", "2:size 10,20"}));
    RECT place{};
    GetWindowRect(second, &place);
    EXPECT_EQ(place, (RECT{25, 66, 35, 86}));
}

TEST_F(Windows, KeepValuesAndTexts)
{
    const HWND window = recorder.window('A', rect);
    SetWindowLongW(window, DWL_USER, 5); // not a dialog
    EXPECT_EQ(GetWindowLongW(window, DWL_USER), 0);
    SetWindowTextW(window, u"12345");
    WCHAR text[4] = u"???";
    EXPECT_EQ(GetWindowTextW(window, text, 4), 3);
    EXPECT_EQ(std::u16string(text), u"123");
}

} // namespace
