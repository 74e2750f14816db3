// Lists the windows, and what exists of the program's objects. Where controls, menus and the
// shell's buttons can be tapped.
#include "pilot/inspect.h"

#include <algorithm>

#include "base/names.h"
#include "base/utf.h"
#include "controls/combobox.h"
#include "shell/drop_down.h"
#include "shell/menu_bar.h"
#include "shell/title_bar.h"
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

POINT centreOf(const RECT &rect)
{
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool holds(HMENU menu, UINT command)
{
    const user::Menu *found = user::findMenu(menu);
    return found && std::ranges::any_of(found->items, [&](const user::MenuItem &item) {
               return !item.separator() && (item.id == command || holds(item.dropDown, command));
           });
}

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

std::optional<Target> control(int id)
{
    const HWND found = GetDlgItem(GetActiveWindow(), id);
    RECT rect;
    if (!found || IsWindowVisible(found) == FALSE || GetWindowRect(found, &rect) == FALSE) {
        return std::nullopt;
    }
    return Target{centreOf(rect), IsWindowEnabled(found) != FALSE};
}

std::optional<Target> menuBarButton(int index)
{
    const HWND bar = shell::shownMenuBar();
    const auto &buttons = shell::buttonsOf(bar);
    RECT place;
    if (index < 0 || static_cast<std::size_t>(index) >= buttons.size() ||
        GetWindowRect(bar, &place) == FALSE)
    {
        return std::nullopt;
    }
    RECT rect = buttons[static_cast<std::size_t>(index)].rect;
    OffsetRect(&rect, place.left, place.top);
    return Target{centreOf(rect), IsWindowEnabled(GetParent(bar)) != FALSE};
}

std::optional<int> menuBarButtonOf(int command)
{
    const auto &buttons = shell::buttonsOf(shell::shownMenuBar());
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (holds(buttons[i].dropDown, static_cast<UINT>(command))) {
            return static_cast<int>(i);
        }
    }
    return std::nullopt;
}

std::optional<Target> openMenuItem(int command)
{
    const auto item = shell::openItem(static_cast<UINT>(command));
    return item ? std::optional(Target{centreOf(item->rect), !item->grayed}) : std::nullopt;
}

bool menuOpen() { return shell::menuIsOpen(); }

std::optional<Target> openListItem(int comboId, int index)
{
    const auto rect = controls::listItemRect(GetDlgItem(GetActiveWindow(), comboId), index);
    return rect ? std::optional(Target{centreOf(*rect), true}) : std::nullopt;
}

std::optional<Target> okButton()
{
    const auto rect = shell::okButtonRect();
    return rect ? std::optional(Target{centreOf(*rect), true}) : std::nullopt;
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
