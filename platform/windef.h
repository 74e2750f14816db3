// Basic types of the handheld's programming interface: integers of fixed width, typed
// handles, points and rectangles. Every other platform header builds on this one.
#pragma once

#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using SHORT = std::int16_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;

/// A UTF-16 code unit: 16 bits on every host, whatever its wchar_t is. Literals are u"...".
using WCHAR = char16_t;
using LPWSTR = WCHAR *;
using LPCWSTR = const WCHAR *;

/// Message parameters and results are wide enough for an address of the host.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;
using LONG_PTR = std::intptr_t;

constexpr BOOL FALSE = 0;
constexpr BOOL TRUE = 1;

/// Calling conventions: the handheld has only one, so these mark entry points and no more.
#define WINAPI
#define CALLBACK

/// The object behind a handle is found in a table of the handheld by this number; 0 is "none".
/// Four bytes on every host, so records that hold handles keep their layout.
template <class Kind>
struct Handle
{
    std::uint32_t value = 0;

    explicit operator bool() const { return value != 0; }
    friend bool operator==(Handle, Handle) = default;
};

using HWND = Handle<struct WindowKind>;
using HDC = Handle<struct DeviceContextKind>;
using HINSTANCE = Handle<struct ModuleKind>;
using HMODULE = HINSTANCE;
using HMENU = Handle<struct MenuKind>;
using HACCEL = Handle<struct AcceleratorKind>;
using HRSRC = Handle<struct ResourceKind>;
using HKEY = Handle<struct RegistryKeyKind>;
using HICON = Handle<struct IconKind>;
using HCURSOR = Handle<struct CursorKind>;

/// Any object that SelectObject accepts. Bitmaps, brushes, pens and fonts convert to it.
using HGDIOBJ = Handle<struct GdiObjectKind>;
struct HBITMAP : HGDIOBJ
{
};
struct HBRUSH : HGDIOBJ
{
};
struct HPEN : HGDIOBJ
{
};
struct HFONT : HGDIOBJ
{
};

static_assert(sizeof(HWND) == 4 && sizeof(HBITMAP) == 4);

/// A colour as 0x00BBGGRR, 8 bits a channel.
using COLORREF = DWORD;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue)
{
    return (red & 0xFFU) | (green & 0xFFU) << 8U | (blue & 0xFFU) << 16U;
}
constexpr BYTE GetRValue(COLORREF colour) { return static_cast<BYTE>(colour); }
constexpr BYTE GetGValue(COLORREF colour) { return static_cast<BYTE>(colour >> 8U); }
constexpr BYTE GetBValue(COLORREF colour) { return static_cast<BYTE>(colour >> 16U); }

struct POINT
{
    LONG x;
    LONG y;
    friend bool operator==(const POINT &, const POINT &) = default;
};

struct SIZE
{
    LONG cx;
    LONG cy;
};

/// A rectangle of pixels; right and bottom are exclusive.
struct RECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
    friend bool operator==(const RECT &, const RECT &) = default;
};

constexpr WORD LOWORD(std::uintptr_t value) { return static_cast<WORD>(value); }
constexpr WORD HIWORD(std::uintptr_t value) { return static_cast<WORD>(value >> 16U); }
constexpr DWORD MAKELONG(unsigned low, unsigned high)
{
    return (low & 0xFFFFU) | (high & 0xFFFFU) << 16U;
}
constexpr WPARAM MAKEWPARAM(unsigned low, unsigned high) { return MAKELONG(low, high); }
/// Packs two signed 16-bit numbers, a position for example, the way messages carry them.
constexpr LPARAM MAKELPARAM(int low, int high)
{
    return static_cast<LONG>(
        MAKELONG(static_cast<unsigned>(low) & 0xFFFFU, static_cast<unsigned>(high) & 0xFFFFU));
}

/// A resource identifier in the place of a resource name: its number, below 65,536.
inline LPCWSTR MAKEINTRESOURCEW(unsigned id)
{
    return reinterpret_cast<LPCWSTR>(static_cast<std::uintptr_t>(static_cast<WORD>(id)));
}
