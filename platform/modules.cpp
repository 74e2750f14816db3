// Modules: the program with its resources, and the one system library with the one function that
// programs look up in it.
#include <algorithm>

#include "handheld.h"
#include "resources/image.h"
#include "text.h"
#include "user/display.h"
#include "winbase.h"

namespace {

constexpr HMODULE programModule{1};
constexpr HMODULE systemLibrary{2};

} // namespace

HMODULE LoadLibraryW(LPCWSTR fileName)
{
    return fileName && text::sameName(fileName, u"coredll.dll") ? systemLibrary : HMODULE{};
}

BOOL FreeLibrary(HMODULE module) { return module == systemLibrary ? TRUE : FALSE; }

FARPROC GetProcAddressW(HMODULE module, LPCWSTR name)
{
    if (module != systemLibrary || !name || std::u16string_view(name) != u"ChangeDisplaySettingsEx")
    {
        return nullptr;
    }
    return reinterpret_cast<FARPROC>(&user::changeDisplaySettings);
}

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type)
{
    if (module && module != programModule) {
        return {};
    }
    return {resources::locate(resources::Name::from(type), resources::Name::from(name))};
}

HGLOBAL LoadResource(HMODULE module, HRSRC resource)
{
    if (module && module != programModule) {
        return nullptr;
    }
    return resources::at(resource.value).data();
}

DWORD SizeofResource(HMODULE module, HRSRC resource)
{
    if (module && module != programModule) {
        return 0;
    }
    return static_cast<DWORD>(resources::at(resource.value).size());
}

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int capacity)
{
    if (!buffer || capacity <= 0) {
        return 0;
    }
    const bool known = !module || module == programModule;
    const std::u16string_view text = known ? resources::string(id) : std::u16string_view{};
    const auto length = text.copy(buffer, static_cast<std::size_t>(capacity - 1));
    buffer[length] = 0;
    return static_cast<int>(length);
}
