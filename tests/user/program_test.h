// Tests on a handheld with a user before it, whose windows note down the messages they get.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "aygshell.h"
#include "pilot/inspect.h"
#include "support/fake_host.h"
#include "winuser.h"

using Log = std::vector<std::string>;

/// The handheld switched on, with the class "TEST" of windows that do what DefWindowProcW does.
class Recorder
{
public:
    Recorder()
    {
        current = this;
        WNDCLASSW description{};
        description.lpfnWndProc = procedure;
        description.lpszClassName = u"TEST";
        const HGDIOBJ white = GetStockObject(WHITE_BRUSH);
        description.hbrBackground.value = white.value;
        RegisterClassW(&description);
    }
    ~Recorder() { current = nullptr; }

    /// A window known by a name of one letter. Top-level windows are shown and activated.
    HWND window(char name, const RECT &rect, HWND parent = {}, DWORD style = WS_VISIBLE,
                DWORD exStyle = 0)
    {
        nameOfNext_ = name;
        return CreateWindowExW(exStyle, u"TEST", u"a window", style, rect.left, rect.top,
                               rect.right - rect.left, rect.bottom - rect.top, parent, {}, {},
                               nullptr);
    }
    /// What was noted since the last call: "A:activate 1 B", one entry a message.
    Log takeLog() { return std::exchange(log_, {}); }

    /// Does this, too, whenever a window gets the message.
    void when(UINT message, std::function<void(HWND, WPARAM, LPARAM)> action)
    {
        actions_[message] = std::move(action);
    }
    /// The names of the windows, front to back; the title bar is a "-".
    std::string order() const
    {
        std::string order;
        for (const inspect::WindowView &view : inspect::windows()) {
            order += nameOf(view.window.value);
        }
        return order;
    }

    SwitchedOn handheld{testResources()};
    FakeHost &host = handheld.host;
    /// The messages to be noted.
    std::set<UINT> noted;
    /// Asked before DefWindowProcW; what it answers is the result of the message.
    std::function<std::optional<LRESULT>(HWND, UINT, WPARAM, LPARAM)> handler;

private:
    static LRESULT procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_CREATE) {
            current->names_[window.value] = current->nameOfNext_;
        }
        if (current->noted.contains(message)) {
            current->note(window, message, wParam, lParam);
        }
        if (current->actions_.contains(message)) {
            current->actions_.at(message)(window, wParam, lParam);
        }
        const auto result =
            current->handler ? current->handler(window, message, wParam, lParam) : std::nullopt;
        return result ? *result : DefWindowProcW(window, message, wParam, lParam);
    }
    std::string nameOf(std::uintptr_t handle) const
    {
        const auto found = names_.find(handle);
        return found == names_.end() ? "-" : std::string(1, found->second);
    }
    void note(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const bool minimized = message == WM_SIZE && wParam == SIZE_MINIMIZED;
        const auto other = static_cast<std::uintptr_t>(lParam);
        const auto low = static_cast<SHORT>(LOWORD(other));
        const auto high = static_cast<SHORT>(HIWORD(other));
        std::string line = nameOf(window.value) + ":";
        for (const char unit : minimized ? "size minimized" : patterns.at(message)) {
            line += unit == '#'   ? std::to_string(wParam)
                    : unit == '@' ? std::to_string(low) + "," + std::to_string(high)
                    : unit == '<' ? nameOf(wParam)
                    : unit == '>' ? nameOf(other)
                    : unit == '!' ? std::to_string(GetTickCount())
                                  : std::string(1, unit);
        }
        log_.push_back(line);
    }

    /// What is noted of a message. In it # stands for wParam, @ for the point in lParam, < and >
    /// for the windows in either, and ! for the time.
    inline static const std::map<UINT, std::string> patterns = {
        {WM_CREATE, "create"},         {WM_DESTROY, "destroy"},       {WM_NCDESTROY, "gone"},
        {WM_MOVE, "move @"},           {WM_SIZE, "size @"},           {WM_SHOWWINDOW, "show #"},
        {WM_ACTIVATE, "activate # >"}, {WM_SETFOCUS, "setfocus <"},   {WM_KILLFOCUS, "killfocus <"},
        {WM_PAINT, "paint"},           {WM_TIMER, "timer # at !"},    {WM_KEYDOWN, "keydown #"},
        {WM_KEYUP, "keyup #"},         {WM_CHAR, "char #"},           {WM_COMMAND, "command #"},
        {WM_LBUTTONDOWN, "down @"},    {WM_MOUSEMOVE, "drag @"},      {WM_LBUTTONUP, "up @"},
        {WM_CAPTURECHANGED, "uncapt"}, {WM_SETTINGCHANGE, "setting"}, {WM_HELP, "help"},
        {WM_CLOSE, "close"},           {WM_HIBERNATE, "hibernate"},   {WM_USER, "user #"}};
    inline static Recorder *current = nullptr;

    std::map<std::uintptr_t, char> names_;
    std::map<UINT, std::function<void(HWND, WPARAM, LPARAM)>> actions_;
    char nameOfNext_ = '?';
    Log log_;
};

struct HandheldTest : testing::Test
{
    /// What is noted while all that the test has given is handled and the time passes.
    Log run(unsigned milliseconds = 0)
    {
        host.run(milliseconds);
        return recorder.takeLog();
    }

    Recorder recorder;
    FakeHost &host = recorder.host;
};

/// A program of one window, which owns the dialogs.
struct ProgramTest : HandheldTest
{
    ProgramTest() { SHInitExtraControls(); }

    /// Ends the dialog that is open then.
    void end(INT_PTR result = 0)
    {
        host.act([=] { EndDialog(GetActiveWindow(), result); });
    }
    /// The text of a control of the open dialog.
    static std::u16string textOf(int control)
    {
        WCHAR text[80];
        GetDlgItemTextW(GetActiveWindow(), control, text, 80);
        return text;
    }

    HWND owner = recorder.window('A', {0, 26, 240, 320});
};
