// An offscreen picture in the display's own pixel format.
#pragma once

#include <cstdint>

#include <windows.h>

struct Surface
{
    HBITMAP bitmap{};        ///< owned; none when the surface is empty
    std::int32_t width = 0;  ///< pixels; 0 when empty
    std::int32_t height = 0; ///< pixels; 0 when empty

    /// A blank picture in the format of `reference`; empty when it cannot be made.
    Surface(HDC reference, int newWidth, int newHeight)
    {
        createBlank(reference, newWidth, newHeight);
    }
    /// Bitmap resource `resource` converted to that format; empty when it cannot be made.
    Surface(HDC reference, UINT resource) { loadFromResource(reference, resource); }

    bool createBlank(HDC reference, int newWidth, int newHeight);
    bool loadFromResource(HDC reference, UINT resource);
    /// Deletes the bitmap, if there is one. The surface itself is deleted next.
    void release() { DeleteObject(bitmap); }
};
