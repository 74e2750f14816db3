// The functions by which a program finds its resources and strings.
#include "resources/image.h"
#include "winbase.h"

namespace {

/// Only the program has resources. A handle of 0 means the program, too.
bool hasResources(HMODULE module)
{
    constexpr HMODULE program{1};
    return !module || module == program;
}

} // namespace

HRSRC FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type)
{
    using resources::Name;
    return {hasResources(module) ? resources::locate(Name::from(type), Name::from(name)) : 0};
}

HGLOBAL LoadResource(HMODULE module, HRSRC resource)
{
    return hasResources(module) ? resources::at(resource.value).data() : nullptr;
}

DWORD SizeofResource(HMODULE module, HRSRC resource)
{
    return hasResources(module) ? static_cast<DWORD>(resources::at(resource.value).size()) : 0;
}

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int capacity)
{
    if (!buffer || capacity <= 0) {
        return 0;
    }
    const auto text = hasResources(module) ? resources::string(id) : std::u16string_view{};
    const auto length = text.copy(buffer, static_cast<std::size_t>(capacity - 1));
    buffer[length] = 0;
    return static_cast<int>(length);
}
