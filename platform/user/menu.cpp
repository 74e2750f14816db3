// Menus: read from MENU resources in the standard binary form, looked up and changed.
#include "user/menu.h"

#include <algorithm>
#include <map>

#include "base/byte_reader.h"
#include "resources/image.h"

namespace user {

namespace {

constexpr unsigned lastItem = 0x80; ///< flag of a menu's last item in the binary form
constexpr int deepest = 8;          ///< level of nesting that is still read

std::map<std::uint32_t, Menu> table;
std::uint32_t nextHandle = 1;

Menu *lookUp(HMENU menu)
{
    const auto found = table.find(menu.value);
    return found == table.end() ? nullptr : &found->second;
}

HMENU add(Menu menu)
{
    const HMENU handle{nextHandle++};
    table.emplace(handle.value, std::move(menu));
    return handle;
}

void remove(HMENU menu)
{
    const auto found = table.find(menu.value);
    if (found != table.end()) {
        const Menu removed = std::move(found->second);
        table.erase(found);
        for (const MenuItem &item : removed.items) {
            remove(item.dropDown);
        }
    }
}

HMENU readMenu(base::ByteReader &reader, int depth);

MenuItem readItem(base::ByteReader &reader, unsigned flags, int depth)
{
    MenuItem item;
    item.flags = flags & (MF_GRAYED | MF_POPUP | MF_SEPARATOR);
    item.id = (flags & MF_POPUP) != 0 ? 0 : reader.word();
    item.text = reader.text();
    if ((flags & MF_POPUP) != 0) {
        item.dropDown = readMenu(reader, depth + 1);
    } else if (item.id == 0 && item.text.empty()) {
        item.flags |= MF_SEPARATOR;
    }
    return item;
}

/// Reads items up to the one with the flag `lastItem`.
HMENU readMenu(base::ByteReader &reader, int depth)
{
    Menu menu;
    menu.isDropDown = depth > 0;
    unsigned flags = 0;
    while (reader.good() && depth < deepest && (flags & lastItem) == 0) {
        flags = reader.word();
        menu.items.push_back(readItem(reader, flags, depth));
    }
    return add(std::move(menu));
}

/// The item with a command, in a menu or any below it.
MenuItem *findCommand(HMENU menu, UINT id)
{
    Menu *found = lookUp(menu);
    if (!found) {
        return nullptr;
    }
    for (MenuItem &item : found->items) {
        if (item.dropDown) {
            if (MenuItem *inside = findCommand(item.dropDown, id)) {
                return inside;
            }
        } else if (item.id == id && !item.separator()) {
            return &item;
        }
    }
    return nullptr;
}

MenuItem *findItem(HMENU menu, UINT item, UINT flags)
{
    if ((flags & MF_BYPOSITION) == 0) {
        return findCommand(menu, item);
    }
    Menu *found = lookUp(menu);
    return found && item < found->items.size() ? &found->items[item] : nullptr;
}

} // namespace

const Menu *findMenu(HMENU menu) { return lookUp(menu); }

std::size_t liveMenus()
{
    return static_cast<std::size_t>(
        std::count_if(std::begin(table), std::end(table),
                      [](const auto &entry) { return !entry.second.isDropDown; }));
}

void forgetMenus() { table.clear(); }

} // namespace user

HMENU LoadMenuW(HINSTANCE, LPCWSTR name)
{
    const auto bytes = resources::find(RT_MENU, name);
    base::ByteReader reader(bytes);
    const unsigned version = reader.word();
    reader.skip(reader.word()); // the rest of the header
    if (bytes.empty() || version != 0) {
        return {};
    }
    const HMENU menu = user::readMenu(reader, 0);
    if (!reader.good()) {
        user::remove(menu);
        return {};
    }
    return menu;
}

BOOL DestroyMenu(HMENU menu)
{
    const BOOL existed = user::findMenu(menu) ? TRUE : FALSE;
    user::remove(menu);
    return existed;
}

HMENU GetSubMenu(HMENU menu, int position)
{
    const user::MenuItem *item =
        position < 0 ? nullptr : user::findItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
    return item ? item->dropDown : HMENU{};
}

int EnableMenuItem(HMENU menu, UINT item, UINT flags)
{
    user::MenuItem *found = user::findItem(menu, item, flags);
    if (!found) {
        return -1;
    }
    const UINT previous = found->flags & MF_GRAYED;
    found->flags = (found->flags & ~MF_GRAYED) | (flags & MF_GRAYED);
    return static_cast<int>(previous);
}
