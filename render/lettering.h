// Text in bold Arial, the program's only typeface.
#pragma once

#include <windows.h>

/// The font of a cell height in pixels. The caller deletes it.
[[nodiscard]] HFONT createBoldFont(int height);

/// A font made for one drawing step: selected, with a transparent background, as long as this
/// lives.
class BoldFont
{
public:
    BoldFont(HDC dc, int height);
    ~BoldFont();
    BoldFont(const BoldFont &) = delete;
    BoldFont &operator=(const BoldFont &) = delete;

private:
    HDC dc_;
    HFONT font_;
    HGDIOBJ previous_;
};

/// Draws one line of text in the selected font: DT_LEFT, DT_CENTER or DT_RIGHT in `rect`, centred
/// vertically, not clipped to it, '&' as itself.
void drawText(HDC dc, RECT rect, LPCWSTR text, UINT alignment, COLORREF colour);
