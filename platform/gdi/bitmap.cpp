// Creating, loading and describing bitmaps and brushes.
#include <cstring>
#include <new>
#include <utility>

#include "gdi/dib.h"
#include "resources/image.h"
#include "winbase.h"

namespace gdi {

namespace {

BITMAP describe(const Bitmap &bitmap)
{
    BITMAP description{};
    description.bmWidth = bitmap.width;
    description.bmHeight = bitmap.height;
    description.bmWidthBytes = (bitmap.width * bitmap.storedBits / 8 + 1) / 2 * 2;
    description.bmPlanes = 1;
    description.bmBitsPixel = bitmap.storedBits;
    return description;
}

template <class Record>
int give(const Record &record, int size, void *target)
{
    constexpr int needed = sizeof(Record);
    if (!target || size < needed) {
        return 0;
    }
    std::memcpy(target, &record, sizeof(Record));
    return needed;
}

HBITMAP insertBitmap(std::unique_ptr<Bitmap> bitmap)
{
    return bitmap ? HBITMAP{{insert(std::move(bitmap))}} : HBITMAP{};
}

} // namespace

std::unique_ptr<Bitmap> Bitmap::make(int width, int height)
{
    constexpr int longestSide = 4096;
    if (width <= 0 || height <= 0 || width > longestSide || height > longestSide) {
        return nullptr;
    }
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::unique_ptr<Pixel[]> pixels(new (std::nothrow) Pixel[count]());
    if (!pixels) {
        return nullptr;
    }
    return std::unique_ptr<Bitmap>(new Bitmap(std::move(pixels), width, height));
}

} // namespace gdi

HBITMAP CreateCompatibleBitmap(HDC, int width, int height)
{
    return gdi::insertBitmap(gdi::Bitmap::make(width, height));
}

HBITMAP LoadBitmapW(HINSTANCE, LPCWSTR name)
{
    return gdi::insertBitmap(gdi::readDib(resources::find(RT_BITMAP, name)));
}

HBRUSH CreateSolidBrush(COLORREF colour)
{
    return {{gdi::insert(std::make_unique<gdi::Brush>(gdi::toPixel(colour)))}};
}

int GetObjectW(HGDIOBJ object, int size, void *description)
{
    if (const auto *bitmap = gdi::find<gdi::Bitmap>(object.value)) {
        return gdi::give(gdi::describe(*bitmap), size, description);
    }
    if (const auto *font = gdi::find<gdi::Font>(object.value)) {
        return gdi::give(font->description, size, description);
    }
    return 0;
}
