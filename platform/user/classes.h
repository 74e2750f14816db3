// Window classes: what the windows of one kind have in common.
#pragma once

#include <string>
#include <string_view>

#include "winuser.h"

namespace user {

struct WindowClass
{
    std::u16string name; ///< compared without regard to case
    WNDPROC procedure = nullptr;
    UINT style = 0;
    HBRUSH background{}; ///< none: nothing is erased
    HICON icon{};
    bool system = false; ///< one of the system's own, not of the program
};

/// Null when there is no class of that name.
const WindowClass *findClass(LPCWSTR name);
/// Registers one of the system's own classes, without icon and background; once is enough.
void registerSystemClass(std::u16string_view name, WNDPROC procedure);
void forgetClasses();

} // namespace user
