// STATIC: a text, or a picture of the program's resources.
#include "controls/control.h"
#include "controls/theme.h"

namespace controls {

namespace {

constexpr DWORD typeMask = 0x1F;

struct StaticData final : user::WindowData
{
    StaticData() = default;
    StaticData(const StaticData &) = delete;
    StaticData &operator=(const StaticData &) = delete;
    ~StaticData() override { DeleteObject(bitmap); }

    HBITMAP bitmap{};
};

/// A picture's text is "#" and the number of its resource.
void create(user::Window &window, StaticData &data, const CREATESTRUCTW &creation)
{
    if ((window.style & typeMask) == SS_BITMAP && window.text.starts_with(u'#')) {
        const auto number = static_cast<unsigned>(_wtoi(window.text.c_str() + 1));
        data.bitmap = LoadBitmapW(creation.hInstance, MAKEINTRESOURCEW(number));
        window.text.clear();
    }
}

void paintBitmap(HDC dc, HBITMAP bitmap)
{
    BITMAP description{};
    const HDC source = CreateCompatibleDC(dc);
    if (GetObjectW(bitmap, sizeof description, &description) != 0 && source) {
        const HGDIOBJ previous = SelectObject(source, bitmap);
        BitBlt(dc, 0, 0, description.bmWidth, description.bmHeight, source, 0, 0, SRCCOPY);
        SelectObject(source, previous);
    }
    DeleteDC(source);
}

void paint(const user::Window &window, const StaticData &data)
{
    const theme::Painting painting(window.handle);
    const RECT rect = clientRect(window.handle);
    theme::fill(painting.dc(), rect, theme::page);
    if (data.bitmap) {
        paintBitmap(painting.dc(), data.bitmap);
        return;
    }
    const DWORD type = window.style & typeMask;
    UINT flags = DT_WORDBREAK;
    flags |= type == SS_CENTER ? DT_CENTER : DT_LEFT;
    flags |= (window.style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0;
    theme::drawText(painting.dc(), window.text, rect, flags,
                    theme::textColour(window.enabled(), false));
}

LRESULT handle(HWND window, StaticData &data, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        create(*user::find(window), data, *reinterpret_cast<const CREATESTRUCTW *>(lParam));
        return 0;
    case WM_PAINT:
        paint(*user::find(window), data);
        return 0;
    case WM_SETTEXT:
        return setText(window, wParam, lParam);
    case WM_ENABLE:
        InvalidateRect(window, nullptr, TRUE);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

} // namespace

void registerStatic() { user::registerSystemClass(u"STATIC", procedureWith<StaticData, handle>); }

} // namespace controls
