// The stock objects. A stored game holds two handles, and how many objects come before them decides
// their values: so all of the system's stock objects are made, always, in this order.
#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "gdi/objects.h"

namespace gdi {

namespace {

HGDIOBJ insertStock(std::unique_ptr<Object> object)
{
    object->stock = true;
    return {insert(std::move(object))};
}

HGDIOBJ brush(std::optional<Pixel> pixel) { return insertStock(std::make_unique<Brush>(pixel)); }
HGDIOBJ pen(std::optional<Pixel> pixel) { return insertStock(std::make_unique<Pen>(pixel)); }

struct Stock
{
    /// By their numbers, from WHITE_BRUSH to SYSTEM_FONT. Some have no name in wingdi.h.
    std::array<HGDIOBJ, SYSTEM_FONT + 1> objects{
        brush(toPixel(RGB(255, 255, 255))),
        brush(toPixel(RGB(192, 192, 192))),
        brush(toPixel(RGB(128, 128, 128))),
        brush(toPixel(RGB(64, 64, 64))),
        brush(toPixel(RGB(0, 0, 0))),
        brush(std::nullopt),
        pen(toPixel(RGB(255, 255, 255))),
        pen(toPixel(RGB(0, 0, 0))),
        pen(std::nullopt),
        {}, // 9 to 12 are free
        {},
        {},
        {},
        insertStock(std::make_unique<Font>(systemFontDescription())),
    };
    HGDIOBJ bitmap = insertStock(Bitmap::make(1, 1));
};

const Stock &stock()
{
    static const Stock objects;
    return objects;
}

} // namespace

HGDIOBJ stockBitmap() { return stock().bitmap; }

} // namespace gdi

HGDIOBJ GetStockObject(int which)
{
    const auto &objects = gdi::stock().objects;
    return which >= 0 && which <= SYSTEM_FONT ? objects[static_cast<std::size_t>(which)]
                                              : HGDIOBJ{};
}
