// Takes any bytes as the program's resources, and looks for all kinds that there are.
#include <cstdlib>
#include <vector>

#include "aygshell.h"
#include "resources/image.h"
#include "support/fake_host.h"
#include "user/icon.h"

namespace {

constexpr unsigned mostNames = 4; ///< the numbers from 1 that are tried for every type

/// Loads what has this number or name, of every type.
void loadAll(HWND window, LPCWSTR name)
{
    const HMENU menu = LoadMenuW({}, name);
    EnableMenuItem(GetSubMenu(menu, 0), 1, MF_GRAYED);
    DestroyMenu(menu);
    user::iconPicture(LoadIconW({}, name));
    DeleteObject(LoadBitmapW({}, name));
    MSG pressed{};
    pressed.message = WM_CHAR;
    pressed.wParam = 'a';
    TranslateAcceleratorW(window, LoadAcceleratorsW({}, name), &pressed);
}

/// What is found must lie within the image.
void checkPlace(std::span<const std::byte> image, LPCWSTR name, LPCWSTR type)
{
    const HRSRC resource = FindResourceW({}, name, type);
    const auto *first = static_cast<const std::byte *>(LoadResource({}, resource));
    const std::size_t size = SizeofResource({}, resource);
    if (first && (first < image.data() || size > image.size() ||
                  first - image.data() > static_cast<std::ptrdiff_t>(image.size() - size)))
    {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    const std::vector<std::byte> image(bytes.begin(), bytes.end()); // at a multiple of four bytes
    SwitchedOn on(image);
    const HWND window =
        CreateWindowExW(0, u"STATIC", u"", WS_VISIBLE, 0, 0, 240, 268, {}, {}, {}, nullptr);
    WCHAR text[64];
    for (unsigned id = 0; id < 16 * mostNames; ++id) {
        LoadStringW({}, id, text, 64);
    }
    for (unsigned number = 1; number <= mostNames; ++number) {
        loadAll(window, MAKEINTRESOURCEW(number));
        checkPlace(image, MAKEINTRESOURCEW(number), u"WAVE");
    }
    loadAll(window, u"LOGO");
    checkPlace(image, u"LOGO", RT_BITMAP);
    SHMENUBARINFO bar{32, window, 0, 1, {}, 0, 0, {}};
    SHCreateMenuBar(&bar);
    return 0;
}
