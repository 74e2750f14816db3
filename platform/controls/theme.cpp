// Drawing in the handheld's look. Brushes and fonts live for one call only, so that a list of
// objects that a program forgot to delete shows none of the system's.
#include "controls/theme.h"

namespace theme {

namespace {

/// Selects the system font in a weight, and the previous font at its end.
class SelectedFont
{
public:
    SelectedFont(HDC dc, Weight weight)
        : dc_(dc), font_(make(weight)),
          previous_(SelectObject(dc, font_ ? HGDIOBJ(font_) : GetStockObject(SYSTEM_FONT)))
    {}
    SelectedFont(const SelectedFont &) = delete;
    SelectedFont &operator=(const SelectedFont &) = delete;
    ~SelectedFont()
    {
        SelectObject(dc_, previous_);
        DeleteObject(font_);
    }

private:
    static HFONT make(Weight weight)
    {
        if (weight == Weight::Regular) {
            return {};
        }
        LOGFONTW description{};
        GetObjectW(GetStockObject(SYSTEM_FONT), sizeof description, &description);
        description.lfWeight = FW_BOLD;
        return CreateFontIndirectW(&description);
    }

    HDC dc_;
    HFONT font_;
    HGDIOBJ previous_;
};

int length(std::u16string_view string) { return static_cast<int>(string.size()); }

} // namespace

void fill(HDC dc, const RECT &rect, COLORREF colour)
{
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

void drawFrame(HDC dc, const RECT &rect, COLORREF colour)
{
    fill(dc, {rect.left, rect.top, rect.right, rect.top + 1}, colour);
    fill(dc, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, colour);
    fill(dc, {rect.left, rect.top, rect.left + 1, rect.bottom}, colour);
    fill(dc, {rect.right - 1, rect.top, rect.right, rect.bottom}, colour);
}

void drawFace(HDC dc, const RECT &rect, COLORREF outline, COLORREF upper, COLORREF lower)
{
    const LONG middle = (rect.top + rect.bottom) / 2;
    fill(dc, {rect.left + 1, rect.top + 1, rect.right - 1, middle}, upper);
    fill(dc, {rect.left + 1, middle, rect.right - 1, rect.bottom - 1}, lower);
    fill(dc, {rect.left + 1, rect.top, rect.right - 1, rect.top + 1}, outline);
    fill(dc, {rect.left + 1, rect.bottom - 1, rect.right - 1, rect.bottom}, outline);
    fill(dc, {rect.left, rect.top + 1, rect.left + 1, rect.bottom - 1}, outline);
    fill(dc, {rect.right - 1, rect.top + 1, rect.right, rect.bottom - 1}, outline);
}

void drawFace(HDC dc, const RECT &rect, COLORREF outline, bool pressed)
{
    drawFace(dc, rect, outline, pressed ? accent : faceUpper, pressed ? accent : faceLower);
}

void drawDisc(HDC dc, POINT centre, int radius, COLORREF colour)
{
    for (int dy = -radius; dy <= radius; ++dy) {
        int dx = radius;
        while (dx * dx + dy * dy > radius * radius + radius) {
            --dx;
        }
        fill(dc, {centre.x - dx, centre.y + dy, centre.x + dx + 1, centre.y + dy + 1}, colour);
    }
}

void drawArrow(HDC dc, POINT centre, COLORREF colour)
{
    for (int half = 3; half >= 0; --half) {
        const LONG y = centre.y + 1 - half;
        fill(dc, {centre.x - half, y, centre.x + half + 1, y + 1}, colour);
    }
}

void drawGleam(HDC dc, POINT centre, COLORREF colour)
{
    constexpr int reach[] = {6, 2, 1, 1, 0, 0, 0};
    for (int dy = -6; dy <= 6; ++dy) {
        const int dx = reach[dy < 0 ? -dy : dy];
        fill(dc, {centre.x - dx, centre.y + dy, centre.x + dx + 1, centre.y + dy + 1}, colour);
    }
}

void drawText(HDC dc, std::u16string_view string, RECT rect, UINT flags, COLORREF colour,
              Weight weight)
{
    const SelectedFont font(dc, weight);
    const int mode = SetBkMode(dc, TRANSPARENT);
    const COLORREF previous = SetTextColor(dc, colour);
    DrawTextW(dc, string.data(), length(string), &rect, flags);
    SetTextColor(dc, previous);
    SetBkMode(dc, mode);
}

COLORREF textColour(bool enabled, bool marked)
{
    return !enabled ? textGrayed : marked ? accentText : text;
}

SIZE measureText(std::u16string_view string, int width, UINT flags, Weight weight)
{
    const HDC dc = GetDC({});
    RECT rect{0, 0, width, 0};
    {
        const SelectedFont font(dc, weight);
        DrawTextW(dc, string.data(), length(string), &rect, flags | DT_CALCRECT);
    }
    ReleaseDC({}, dc);
    return {rect.right, rect.bottom};
}

} // namespace theme
