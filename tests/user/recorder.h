// Windows for tests, which note down the messages they get.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "support/fake_host.h"
#include "support/test_resources.h"
#include "winuser.h"

using Log = std::vector<std::string>;

/// The handheld switched on, with the class "TEST" of windows that do what DefWindowProcW does.
class Recorder
{
public:
    Recorder();
    ~Recorder();

    /// A window known by a name of one letter. Top-level windows are shown and activated.
    HWND window(char name, const RECT &rect, HWND parent = {}, DWORD style = WS_VISIBLE,
                DWORD exStyle = 0);
    /// What was noted since the last call: "A:activate 1 B", one entry a message.
    Log takeLog();

    /// Does this, too, whenever a window gets the message.
    void when(UINT message, std::function<void(HWND, WPARAM, LPARAM)> action);
    /// The names of the windows, front to back; the title bar is a "-".
    std::string order() const;

    SwitchedOn handheld{testResources()};
    FakeHost &host = handheld.host;
    /// The messages to be noted.
    std::set<UINT> noted;
    /// Asked before DefWindowProcW; what it answers is the result of the message.
    std::function<std::optional<LRESULT>(HWND, UINT, WPARAM, LPARAM)> handler;

private:
    static LRESULT procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    std::string nameOf(std::uintptr_t handle) const;
    void note(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::map<std::uintptr_t, char> names_;
    std::map<UINT, std::function<void(HWND, WPARAM, LPARAM)>> actions_;
    char nameOfNext_ = '?';
    Log log_;
};
