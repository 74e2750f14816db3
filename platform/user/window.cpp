// The table of windows and of their classes.
#include "user/window.h"

#include <algorithm>
#include <map>

#include "base/names.h"
#include "resources/image.h"
#include "user/manager.h"
#include "user/visible.h"

namespace user {

namespace {

constexpr std::uint32_t firstHandle = 0x100;
constexpr std::uint32_t handleStep = 2;

std::map<std::uint32_t, std::unique_ptr<Window>> windows;
std::uint32_t nextHandle = firstHandle;
std::vector<std::unique_ptr<WindowClass>> classes;

void collect(Window &window, std::vector<Window *> &into)
{
    into.push_back(&window);
    for (Window *child : window.children) {
        collect(*child, into);
    }
}

} // namespace

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
    for (const HDC dc : window->openDCs) {
        gdi::closeScreenDC(dc);
    }
    removeFromSiblings(*window);
    for (auto &[key, other] : windows) {
        if (other->owner == window) {
            other->owner = nullptr;
        }
    }
    windows.erase(window->handle.value);
    visibilityChanged();
}

void forgetWindows()
{
    for (auto &[key, window] : windows) {
        for (const HDC dc : window->openDCs) {
            gdi::closeScreenDC(dc);
        }
    }
    forgetOrder();
    windows.clear();
    nextHandle = firstHandle;
}

void forgetClasses() { classes.clear(); }

Window *find(HWND handle)
{
    const auto found = windows.find(handle.value & ~1U);
    return found == windows.end() ? nullptr : found->second.get();
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

const WindowClass *findClass(LPCWSTR name)
{
    if (resources::isNumber(name)) {
        return nullptr;
    }
    const auto found = std::find_if(classes.begin(), classes.end(), [&](const auto &each) {
        return base::sameName(each->name, name);
    });
    return found == classes.end() ? nullptr : found->get();
}

void registerSystemClass(std::u16string_view name, WNDPROC procedure)
{
    const std::u16string copy(name);
    if (findClass(copy.c_str())) {
        return;
    }
    classes.push_back(std::make_unique<WindowClass>());
    classes.back()->name = copy;
    classes.back()->procedure = procedure;
    classes.back()->system = true;
}

bool reallyShown(const Window &window)
{
    return window.shown() && (!window.parent || reallyShown(*window.parent));
}

bool reallyEnabled(const Window &window)
{
    return window.enabled() && (!window.parent || reallyEnabled(*window.parent));
}

bool isWithin(HWND window, HWND ancestor)
{
    const Window *each = find(window);
    while (each && each->handle != ancestor) {
        each = each->parent;
    }
    return each != nullptr;
}

POINT placeOf(const Window &window)
{
    const POINT base = window.parent ? window.parent->origin() : POINT{};
    return {window.rect.left - base.x, window.rect.top - base.y};
}

} // namespace user

ATOM RegisterClassW(const WNDCLASSW *description)
{
    if (!description || !description->lpfnWndProc || !description->lpszClassName ||
        user::findClass(description->lpszClassName))
    {
        return 0;
    }
    auto added = std::make_unique<user::WindowClass>();
    added->name = description->lpszClassName;
    added->procedure = description->lpfnWndProc;
    added->style = description->style;
    added->background = description->hbrBackground;
    added->icon = description->hIcon;
    user::classes.push_back(std::move(added));
    return static_cast<ATOM>(user::classes.size());
}
