// The table of window classes.
#include "user/classes.h"

#include <algorithm>
#include <list>

#include "base/names.h"
#include "resources/image.h"

namespace user {

namespace {

std::list<WindowClass> classes;

} // namespace

const WindowClass *findClass(LPCWSTR name)
{
    if (resources::isNumber(name)) {
        return nullptr;
    }
    const auto found = std::find_if(std::begin(classes), std::end(classes), [&](const auto &each) {
        return base::sameName(each.name, name);
    });
    return found == classes.end() ? nullptr : &*found;
}

void registerSystemClass(std::u16string_view name, WNDPROC procedure)
{
    const std::u16string copy(name);
    if (!findClass(copy.c_str())) {
        classes.push_back({.name = copy, .procedure = procedure, .system = true});
    }
}

void forgetClasses() { classes.clear(); }

} // namespace user

ATOM RegisterClassW(const WNDCLASSW *description)
{
    if (!description || !description->lpfnWndProc || !description->lpszClassName ||
        user::findClass(description->lpszClassName))
    {
        return 0;
    }
    user::classes.push_back({
        .name = description->lpszClassName,
        .procedure = description->lpfnWndProc,
        .style = description->style,
        .background = description->hbrBackground,
        .icon = description->hIcon,
    });
    return static_cast<ATOM>(user::classes.size());
}
