// Keeps the windows by their handles, which are never used twice.
#include "user/table.h"

#include <map>

#include "user/order.h"

namespace user {

namespace {

constexpr std::uint32_t firstHandle = 0x100;
constexpr std::uint32_t handleStep = 2;

std::map<std::uint32_t, std::unique_ptr<Window>> windows;
std::uint32_t nextHandle = firstHandle;

void collect(Window &window, std::vector<Window *> &into)
{
    into.push_back(&window);
    for (Window *child : window.children) {
        collect(*child, into);
    }
}

void closeDCs(const Window &window)
{
    for (const HDC dc : window.openDCs) {
        gdi::closeScreenDC(dc);
    }
}

} // namespace

Window *find(HWND handle)
{
    const auto found = windows.find(handle.value & ~1U);
    return found == windows.end() ? nullptr : found->second.get();
}

bool isWithin(HWND window, HWND ancestor)
{
    const Window *each = find(window);
    while (each && each->handle != ancestor) {
        each = each->parent;
    }
    return each != nullptr;
}

std::vector<Window *> familyOf(Window &window)
{
    std::vector<Window *> family;
    collect(window, family);
    return family;
}

std::vector<Window *> everyWindow()
{
    std::vector<Window *> all;
    for (Window *window : topLevelWindows()) {
        collect(*window, all);
    }
    return all;
}

std::vector<HWND> handlesOf(const std::vector<Window *> &list)
{
    std::vector<HWND> handles;
    handles.reserve(list.size());
    for (const Window *window : list) {
        handles.push_back(window->handle);
    }
    return handles;
}

Window &addWindow()
{
    auto window = std::make_unique<Window>();
    window->handle = {nextHandle};
    nextHandle += handleStep;
    return *windows.emplace(window->handle.value, std::move(window)).first->second;
}

void removeWindow(HWND handle)
{
    Window *window = find(handle);
    if (!window) {
        return;
    }
    closeDCs(*window);
    removeFromSiblings(*window);
    for (auto &[key, other] : windows) {
        if (other->owner == window) {
            other->owner = nullptr;
        }
    }
    windows.erase(window->handle.value);
}

void forgetWindows()
{
    for (const auto &[key, window] : windows) {
        closeDCs(*window);
    }
    forgetOrder();
    windows.clear();
    nextHandle = firstHandle;
}

} // namespace user
