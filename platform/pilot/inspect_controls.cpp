// Where controls, menus and the shell's buttons can be tapped.
#include "controls/combobox.h"
#include "pilot/inspect.h"
#include "shell/drop_down.h"
#include "shell/menu_bar.h"
#include "shell/title_bar.h"
#include "user/menu.h"
#include "user/table.h"

namespace inspect {

namespace {

POINT centreOf(const RECT &rect)
{
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool holds(HMENU menu, UINT command)
{
    const user::Menu *found = user::findMenu(menu);
    if (!found) {
        return false;
    }
    for (const user::MenuItem &item : found->items) {
        if (!item.separator() && (item.id == command || holds(item.dropDown, command))) {
            return true;
        }
    }
    return false;
}

} // namespace

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

} // namespace inspect
