// The look of the handheld: the colours of its windows and the functions that draw them.
#pragma once

#include <string_view>

#include "wingdi.h"
#include "winuser.h"

namespace theme {

constexpr COLORREF titleUpper = RGB(40, 88, 176); ///< the title bar's upper half
constexpr COLORREF titleLower = RGB(24, 60, 140); ///< and its lower half
constexpr COLORREF titleEdge = RGB(8, 24, 72);    ///< the line below it
constexpr COLORREF titleText = RGB(255, 255, 255);
constexpr COLORREF gleam = RGB(160, 208, 255); ///< of the star in the title bar

constexpr COLORREF page = RGB(255, 255, 255);
constexpr COLORREF text = RGB(16, 20, 40);
constexpr COLORREF textGrayed = RGB(152, 160, 176);
constexpr COLORREF line = RGB(104, 120, 160);     ///< frames of controls
constexpr COLORREF lineSoft = RGB(200, 208, 224); ///< separators
constexpr COLORREF frame = RGB(24, 40, 96);       ///< frames of windows

constexpr COLORREF faceUpper = RGB(247, 251, 255); ///< raised things: buttons, keys, the bar
constexpr COLORREF faceLower = RGB(222, 231, 247);
constexpr COLORREF accent = RGB(32, 88, 192); ///< what is selected or pressed
constexpr COLORREF accentText = RGB(255, 255, 255);

constexpr COLORREF question = RGB(32, 88, 192);
constexpr COLORREF information = RGB(24, 120, 168);

enum class Weight
{
    Regular,
    Bold
};

void fill(HDC dc, const RECT &rect, COLORREF colour);
/// One pixel wide, inside the rectangle.
void drawFrame(HDC dc, const RECT &rect, COLORREF colour);
/// A frame without its four corner pixels, around an upper and a lower half.
void drawFace(HDC dc, const RECT &rect, COLORREF outline, COLORREF upper, COLORREF lower);
/// The face of something that can be pressed.
void drawFace(HDC dc, const RECT &rect, COLORREF outline, bool pressed);
/// A filled circle.
void drawDisc(HDC dc, POINT centre, int radius, COLORREF colour);
/// A triangle that points down, 7 pixels wide and 4 high, its middle at `centre`.
void drawArrow(HDC dc, POINT centre, COLORREF colour);
/// The star of four rays at the left of the title bar.
void drawGleam(HDC dc, POINT centre, COLORREF colour);

/// In the system font, without a background; `flags` as DrawTextW takes them.
void drawText(HDC dc, std::u16string_view string, RECT rect, UINT flags, COLORREF colour,
              Weight weight = Weight::Regular);
/// The colour of the text of something that can be chosen; `marked` when it is drawn on the accent.
COLORREF textColour(bool enabled, bool marked);
/// The size of a text whose lines are broken at `width` pixels.
SIZE measureText(std::u16string_view string, int width, UINT flags,
                 Weight weight = Weight::Regular);

/// BeginPaint and EndPaint around a window's drawing.
class Painting
{
public:
    explicit Painting(HWND window) : window_(window) { BeginPaint(window, &paint_); }
    Painting(const Painting &) = delete;
    Painting &operator=(const Painting &) = delete;
    ~Painting() { EndPaint(window_, &paint_); }

    HDC dc() const { return paint_.hdc; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
};

} // namespace theme
