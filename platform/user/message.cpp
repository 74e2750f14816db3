// Messages: the queue, the wait for the next one, and handing them to window procedures.
#include "user/message.h"

#include <algorithm>
#include <optional>
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

/// Posted messages in order. Messages already taken stay in the vector until it is full, so that
/// usually nothing is allocated or moved.
class PostedMessages
{
public:
    void add(const MSG &message)
    {
        if (taken_ > 0 && messages_.size() == messages_.capacity()) {
            messages_.erase(messages_.begin(), next());
            taken_ = 0;
        }
        messages_.push_back(message);
    }
    std::optional<MSG> take()
    {
        if (taken_ == messages_.size()) {
            return std::nullopt;
        }
        const MSG message = messages_[taken_++];
        if (taken_ == messages_.size()) {
            clear();
        }
        return message;
    }
    void drop(HWND window)
    {
        messages_.erase(std::remove_if(next(), messages_.end(),
                                       [&](const MSG &each) { return each.hwnd == window; }),
                        messages_.end());
    }
    void clear()
    {
        messages_.clear();
        taken_ = 0;
    }

private:
    std::vector<MSG>::iterator next()
    {
        return messages_.begin() + static_cast<std::ptrdiff_t>(taken_);
    }

    std::vector<MSG> messages_;
    std::size_t taken_ = 0;
};

PostedMessages posted;
std::optional<int> quitCode;

std::optional<MSG> takeQuitMessage()
{
    if (!quitCode) {
        return std::nullopt;
    }
    const MSG message{{}, WM_QUIT, static_cast<WPARAM>(*quitCode), 0, 0, {}};
    quitCode.reset();
    return message;
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
        if (auto message = posted.take()) {
            return *message;
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

void dropMessagesOf(HWND window) { posted.drop(window); }

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
    user::posted.add({record->handle, message, wParam, lParam, 0, {}});
    return TRUE;
}

void PostQuitMessage(int exitCode) { user::quitCode = exitCode; }
