// Makes fonts and draws lines of text with them.
#include "render/lettering.h"

#include <string_view>

HFONT createBoldFont(int height)
{
    LOGFONTW description{};
    description.lfHeight = height;
    description.lfWeight = FW_BOLD;
    constexpr std::u16string_view face = u"Arial";
    face.copy(description.lfFaceName, face.size());
    return CreateFontIndirectW(&description);
}

BoldFont::BoldFont(HDC dc, int height)
    : dc_(dc), font_(createBoldFont(height)), previous_(SelectObject(dc, font_))
{
    SetBkMode(dc, TRANSPARENT);
}

BoldFont::~BoldFont()
{
    SelectObject(dc_, previous_);
    DeleteObject(font_);
}

void drawText(HDC dc, RECT rect, LPCWSTR text, UINT alignment, COLORREF colour)
{
    SetTextColor(dc, colour);
    DrawTextW(dc, text, -1, &rect,
              alignment | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX);
}
