// The windows that note down their messages.
#include "user/recorder.h"

#include <utility>

#include "pilot/inspect.h"

namespace {

Recorder *current = nullptr;

/// What is noted of a message. In it # stands for wParam, @ for the point in lParam, < and > for
/// the windows in either, and ! for the time.
const std::map<UINT, std::string> patterns = {
    {WM_CREATE, "create"},         {WM_DESTROY, "destroy"},       {WM_NCDESTROY, "gone"},
    {WM_MOVE, "move @"},           {WM_SIZE, "size @"},           {WM_SHOWWINDOW, "show #"},
    {WM_ACTIVATE, "activate # >"}, {WM_SETFOCUS, "setfocus <"},   {WM_KILLFOCUS, "killfocus <"},
    {WM_PAINT, "paint"},           {WM_TIMER, "timer # at !"},    {WM_KEYDOWN, "keydown #"},
    {WM_KEYUP, "keyup #"},         {WM_CHAR, "char #"},           {WM_COMMAND, "command #"},
    {WM_LBUTTONDOWN, "down @"},    {WM_MOUSEMOVE, "drag @"},      {WM_LBUTTONUP, "up @"},
    {WM_CAPTURECHANGED, "uncapt"}, {WM_SETTINGCHANGE, "setting"}, {WM_HELP, "help"},
    {WM_CLOSE, "close"},           {WM_HIBERNATE, "hibernate"},   {WM_USER, "user #"}};

} // namespace

Recorder::Recorder()
{
    current = this;
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.lpszClassName = u"TEST";
    const HGDIOBJ white = GetStockObject(WHITE_BRUSH);
    description.hbrBackground.value = white.value;
    RegisterClassW(&description);
}

Recorder::~Recorder() { current = nullptr; }

HWND Recorder::window(char name, const RECT &rect, HWND parent, DWORD style, DWORD exStyle)
{
    nameOfNext_ = name;
    return CreateWindowExW(exStyle, u"TEST", u"a window", style, rect.left, rect.top,
                           rect.right - rect.left, rect.bottom - rect.top, parent, {}, {}, nullptr);
}

Log Recorder::takeLog() { return std::exchange(log_, {}); }

void Recorder::when(UINT message, std::function<void(HWND, WPARAM, LPARAM)> action)
{
    actions_[message] = std::move(action);
}

LRESULT Recorder::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
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

std::string Recorder::nameOf(std::uintptr_t handle) const
{
    const auto found = names_.find(handle);
    return found == names_.end() ? "-" : std::string(1, found->second);
}

std::string Recorder::order() const
{
    std::string order;
    for (const inspect::WindowView &view : inspect::windows()) {
        order += nameOf(view.window.value);
    }
    return order;
}

void Recorder::note(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
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
