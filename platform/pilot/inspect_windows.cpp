// Lists the windows, and what exists of the program's objects.
#include "pilot/inspect.h"

#include "base/names.h"
#include "base/utf.h"
#include "user/menu.h"
#include "user/table.h"
#include "user/timer.h"

namespace inspect {

namespace {

int depthOf(const user::Window &window) { return window.parent ? depthOf(*window.parent) + 1 : 0; }

std::optional<int> selectionOf(const user::Window &window)
{
    if (!base::sameName(window.windowClass->name, u"COMBOBOX")) {
        return std::nullopt;
    }
    const LRESULT selection = SendMessageW(window.handle, CB_GETCURSEL, 0, 0);
    return selection == CB_ERR ? std::nullopt : std::optional(static_cast<int>(selection));
}

/// The shell's own windows, which are there without a program.
bool ofTheSystem(const user::Window &window) { return !window.activatable() && !window.owner; }

} // namespace

std::vector<WindowView> windows()
{
    std::vector<WindowView> views;
    for (const user::Window *window : user::everyWindow()) {
        views.push_back({window->handle, depthOf(*window), window->windowClass->name, window->id,
                         window->rect, window->text, window->handle == GetActiveWindow(),
                         !window->enabled(), !window->reallyShown(), selectionOf(*window)});
    }
    return views;
}

std::vector<std::string> liveObjects()
{
    std::vector<std::string> lines;
    for (user::Window *window : user::everyWindow()) {
        if (!ofTheSystem(window->topLevel())) {
            lines.push_back("window " + base::toUtf8(window->windowClass->name));
        }
    }
    for (const user::Timer &timer : user::liveTimers()) {
        const user::Window *window = user::find(timer.window);
        lines.push_back("timer " + std::to_string(timer.id) + " of " +
                        (window ? base::toUtf8(window->windowClass->name) : "none"));
    }
    lines.insert(lines.end(), user::liveMenus(), "menu");
    return lines;
}

} // namespace inspect
