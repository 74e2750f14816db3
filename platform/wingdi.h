// Drawing (GDI): device contexts, bitmaps, brushes, fonts, blits and text.
//
// The display and all bitmaps have 16-bit pixels: 5 bits red, 6 green, 5 blue. A colour loses the
// low bits of its channels when it is drawn. A device context has one object of each kind selected;
// SelectObject returns the one that was selected before, and the caller selects that one again when
// done. A call with a device context or object that does not exist fails without effect.
#pragma once

#include "windef.h"

// Device contexts ----------------------------------------------------------------------------

/// A memory device context with a 1 by 1 bitmap, the system font, a white brush, a black pen,
/// black text and an opaque white background. `reference` is ignored. None when the table of
/// objects is full.
HDC CreateCompatibleDC(HDC reference);
BOOL DeleteDC(HDC dc);

/// Selects an object and returns the previous one of the same kind. None, and nothing happens, when
/// the object does not exist, or is a bitmap and is selected in another device context or `dc` is
/// on the screen.
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
/// Deletes an object. FALSE, and nothing happens, for a stock object, for one that is selected
/// in a device context, and for one that does not exist.
BOOL DeleteObject(HGDIOBJ object);

constexpr int WHITE_BRUSH = 0;
constexpr int GRAY_BRUSH = 2;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int WHITE_PEN = 6;
constexpr int BLACK_PEN = 7;
constexpr int SYSTEM_FONT = 13;

/// One of the objects that always exist and are never deleted.
HGDIOBJ GetStockObject(int which);

// Bitmaps ------------------------------------------------------------------------------------

struct BITMAP
{
    LONG bmType;       ///< 0
    LONG bmWidth;      ///< pixels
    LONG bmHeight;     ///< pixels
    LONG bmWidthBytes; ///< bytes of a row, a multiple of 2
    WORD bmPlanes;     ///< 1
    WORD bmBitsPixel;  ///< 16; 8 or 24 as a resource stored it
    DWORD bmBits;      ///< 0: a program has no access to the pixels
};
static_assert(sizeof(BITMAP) == 24);

/// A bitmap in the display's format, its pixels black. None when a side is not positive or
/// larger than 4,096, or when out of memory.
HBITMAP CreateCompatibleBitmap(HDC reference, int width, int height);
/// Loads bitmap resource `name`, an uncompressed DIB of 8 bits with a palette or of 24 bits, and
/// converts it to the display's format; GetObjectW still reports the bits of the resource. None
/// when it is missing or malformed.
HBITMAP LoadBitmapW(HINSTANCE module, LPCWSTR name);

// Brushes and fonts --------------------------------------------------------------------------

HBRUSH CreateSolidBrush(COLORREF colour);

constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;
constexpr int LF_FACESIZE = 32;

struct LOGFONTW
{
    LONG lfHeight; ///< > 0 cell height (ascent + descent), < 0 character height, in pixels
    LONG lfWidth, lfEscapement, lfOrientation;
    LONG lfWeight; ///< FW_BOLD and above choose a bold face
    BYTE lfItalic, lfUnderline, lfStrikeOut, lfCharSet;
    BYTE lfOutPrecision, lfClipPrecision, lfQuality, lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};
static_assert(sizeof(LOGFONTW) == 92);

/// The nearest of the fonts that the handheld carries: Arial bold with cells 14, 16 and 32
/// pixels high, and the system font, regular and bold.
HFONT CreateFontIndirectW(const LOGFONTW *description);

/// Describes an object: a bitmap into a BITMAP (24 bytes), a font into a LOGFONTW. Returns the
/// number of bytes written; 0 when the object does not exist or `size` is too small.
int GetObjectW(HGDIOBJ object, int size, void *description);

// Filling and copying ------------------------------------------------------------------------

constexpr DWORD SRCCOPY = 0x00CC0020;

/// Copies the part of a rectangle that lies in both device contexts. `operation` is SRCCOPY.
BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            DWORD operation);
/// As BitBlt, without the pixels that have the colour `transparent` on the display. Source and
/// target must have the same size: there is no scaling.
BOOL TransparentImage(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                      int sourceY, int sourceWidth, int sourceHeight, COLORREF transparent);

/// Fills with a brush; no border. Returns nonzero on success.
int FillRect(HDC dc, const RECT *rect, HBRUSH brush);
/// Fills with the selected brush and draws a one-pixel border inside the rectangle with the
/// selected pen. Right and bottom are exclusive.
BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
/// Reduces the clip rectangle to its intersection with this one (logical coordinates), until
/// RestoreDC. Returns 1 when the result is empty, 2 when it is not, 0 on failure.
int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
/// Saves the selections, text settings and clip rectangle; returns the level, counted from 1.
int SaveDC(HDC dc);
/// Restores the settings saved at a level; -1: at the last one.
BOOL RestoreDC(HDC dc, int level);

// Text ---------------------------------------------------------------------------------------

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2; ///< a white cell behind each line
/// Returns the previous mode.
int SetBkMode(HDC dc, int mode);
/// Returns the previous colour, or CLR_INVALID.
COLORREF SetTextColor(HDC dc, COLORREF colour);
constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;
constexpr UINT DT_NOPREFIX = 0x0800;

/// Draws text in a rectangle. With DT_CALCRECT it draws nothing and sets right and bottom to the
/// size of the text. `length` -1: up to the terminator. Without DT_NOPREFIX, '&' underlines the
/// next letter, and "&&" is a literal '&'. Returns the height of the text in pixels, 0 on failure.
int DrawTextW(HDC dc, LPCWSTR text, int length, RECT *rect, UINT flags);
/// The width and height of a line of text in the selected font.
BOOL GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, SIZE *size);

// Rectangles ---------------------------------------------------------------------------------

BOOL OffsetRect(RECT *rect, int dx, int dy);
BOOL InflateRect(RECT *rect, int dx, int dy);
/// FALSE, and an empty rectangle, when the two do not meet.
BOOL IntersectRect(RECT *result, const RECT *a, const RECT *b);
/// Right and bottom are outside.
BOOL PtInRect(const RECT *rect, POINT point);

// The display's orientation ------------------------------------------------------------------

constexpr DWORD DM_DISPLAYORIENTATION = 0x00800000;
constexpr DWORD DMDO_0 = 0; ///< portrait, 240 by 320
constexpr DWORD DMDO_90 = 1;
constexpr DWORD DMDO_180 = 2;
constexpr DWORD DMDO_270 = 4;
constexpr DWORD CDS_TEST = 0x00000002;
constexpr DWORD CDS_RESET = 0x40000000;
constexpr LONG DISP_CHANGE_SUCCESSFUL = 0;
constexpr LONG DISP_CHANGE_BADMODE = -2;

struct DEVMODEW
{
    WCHAR dmDeviceName[32];
    WORD dmSpecVersion, dmDriverVersion;
    WORD dmSize; ///< 192
    WORD dmDriverExtra;
    DWORD dmFields;
    SHORT dmOrientation, dmPaperSize, dmPaperLength, dmPaperWidth, dmScale, dmCopies;
    SHORT dmDefaultSource, dmPrintQuality, dmColor, dmDuplex, dmYResolution, dmTTOption, dmCollate;
    WCHAR dmFormName[32];
    WORD dmLogPixels;
    DWORD dmBitsPerPel, dmPelsWidth, dmPelsHeight, dmDisplayFlags, dmDisplayFrequency;
    DWORD dmDisplayOrientation; ///< DMDO_0, DMDO_90, DMDO_180 or DMDO_270
};
static_assert(sizeof(DEVMODEW) == 192);

/// The type of "ChangeDisplaySettingsEx", which programs look up in "coredll.dll". With CDS_TEST it
/// writes the present orientation into the record; with CDS_RESET it turns the display.
using ChangeDisplaySettingsExProc = LONG (*)(LPCWSTR device, DEVMODEW *mode, HWND window,
                                             DWORD flags, void *parameter);
