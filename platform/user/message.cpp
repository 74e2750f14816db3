// Messages: the queue, the wait for the next one, and handing them to window procedures.
#include "user/message.h"

#include <optional>
#include <utility>
#include <vector>

#include "host/current.h"
#include "user/focus.h"
#include "user/input.h"
#include "user/paint.h"
#include "user/program_window.h"
#include "user/stylus.h"
#include "user/table.h"
#include "user/timer.h"

namespace user {

namespace {

std::vector<MSG> posted;
std::optional<int> quitCode;

std::optional<MSG> takeQuitMessage()
{
    const auto code = std::exchange(quitCode, std::nullopt);
    return code ? std::optional(MSG{{}, WM_QUIT, static_cast<WPARAM>(*code), 0, 0, {}})
                : std::nullopt;
}

/// What comes after posted messages and input: quit, paint, timer. The frame is shown before a
/// timer may draw the next one, and before the process sleeps.
std::optional<MSG> takeGeneratedMessage()
{
    if (auto message = takeQuitMessage()) {
        return message;
    }
    if (auto message = takePaintMessage()) {
        return message;
    }
    presentFrame();
    return takeTimerMessage(GetTickCount());
}

MSG waitForMessage()
{
    host::Host &host = host::current();
    for (;;) {
        if (!posted.empty()) {
            const MSG message = posted.front();
            posted.erase(posted.begin());
            return message;
        }
        auto event = host.wait(host.ticks());
        if (!event) {
            if (auto message = takeGeneratedMessage()) {
                return *message;
            }
            event = host.wait(nextTimerMoment());
        }
        if (auto message = event ? handleEvent(*event) : std::nullopt) {
            return *message;
        }
    }
}

} // namespace

void dropMessagesOf(HWND window)
{
    std::erase_if(posted, [&](const MSG &each) { return each.hwnd == window; });
}

bool quitPosted() { return quitCode.has_value(); }

void forgetMessages()
{
    posted.clear();
    quitCode.reset();
}

} // namespace user

BOOL GetMessageW(MSG *message, HWND, UINT, UINT)
{
    *message = user::waitForMessage();
    message->time = GetTickCount();
    message->pt = user::stylusPosition();
    return message->message == WM_QUIT ? FALSE : TRUE;
}

BOOL TranslateMessage(const MSG *message)
{
    if (!message || message->message != WM_KEYDOWN) {
        return FALSE;
    }
    const bool character =
        message->wParam == VK_BACK || message->wParam == VK_TAB || message->wParam == VK_RETURN;
    return character && PostMessageW(message->hwnd, WM_CHAR, message->wParam, message->lParam);
}

LRESULT DispatchMessageW(const MSG *message)
{
    const user::Window *record = message ? user::find(message->hwnd) : nullptr;
    if (!record) {
        return 0;
    }
    const bool programTimer =
        message->message == WM_TIMER && record->handle == user::programWindow();
    const bool stylusLifted = message->message == WM_LBUTTONUP;
    const unsigned captures = user::captureCount();
    const LRESULT result =
        SendMessageW(message->hwnd, message->message, message->wParam, message->lParam);
    if (stylusLifted && user::captureCount() == captures) {
        ReleaseCapture();
    }
    if (programTimer) {
        host::current().timerHandled();
    }
    return result;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const user::Window *record = user::find(window);
    return record ? record->procedure(record->handle, message, wParam, lParam) : 0;
}

BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const user::Window *record = user::find(window);
    if (!record || record->destroying) {
        return FALSE;
    }
    user::posted.push_back({record->handle, message, wParam, lParam, 0, {}});
    return TRUE;
}

void PostQuitMessage(int exitCode) { user::quitCode = exitCode; }
