// The system library "coredll.dll", with the one function that programs look up in it by name.
#include <string_view>

#include "base/names.h"
#include "user/display.h"
#include "winbase.h"

namespace {

constexpr HMODULE systemLibrary{2};

} // namespace

HMODULE LoadLibraryW(LPCWSTR fileName)
{
    return fileName && base::sameName(fileName, u"coredll.dll") ? systemLibrary : HMODULE{};
}

BOOL FreeLibrary(HMODULE module) { return module == systemLibrary ? TRUE : FALSE; }

FARPROC GetProcAddressW(HMODULE module, LPCWSTR name)
{
    const bool known =
        module == systemLibrary && name && std::u16string_view(name) == u"ChangeDisplaySettingsEx";
    return known ? reinterpret_cast<FARPROC>(&user::changeDisplaySettings) : nullptr;
}
