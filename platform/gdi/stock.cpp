// The stock objects, all of the system's: their number decides which handles a program gets, and a
// game's record holds two.
#include "gdi/font.h"
#include "gdi/objects.h"

namespace gdi {

namespace {

template <class T, class... Arguments>
HGDIOBJ insertStock(Arguments &&...arguments)
{
    auto object = std::make_unique<T>(std::forward<Arguments>(arguments)...);
    object->stock = true;
    return {insert(std::move(object))};
}

HGDIOBJ insertStockBitmap()
{
    std::unique_ptr<Bitmap> bitmap = Bitmap::make(1, 1);
    bitmap->stock = true;
    return {insert(std::move(bitmap))};
}

struct Stock
{
    HGDIOBJ whiteBrush = insertStock<Brush>(toPixel(RGB(255, 255, 255)));
    HGDIOBJ lightGrayBrush = insertStock<Brush>(toPixel(RGB(192, 192, 192)));
    HGDIOBJ grayBrush = insertStock<Brush>(toPixel(RGB(128, 128, 128)));
    HGDIOBJ darkGrayBrush = insertStock<Brush>(toPixel(RGB(64, 64, 64)));
    HGDIOBJ blackBrush = insertStock<Brush>(toPixel(RGB(0, 0, 0)));
    HGDIOBJ nullBrush = insertStock<Brush>(std::nullopt);
    HGDIOBJ whitePen = insertStock<Pen>(toPixel(RGB(255, 255, 255)));
    HGDIOBJ blackPen = insertStock<Pen>(toPixel(RGB(0, 0, 0)));
    HGDIOBJ nullPen = insertStock<Pen>(std::nullopt);
    HGDIOBJ systemFont =
        insertStock<Font>(systemFontDescription(), nearestStrike(systemFontDescription()));
    HGDIOBJ bitmap = insertStockBitmap();
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
    const gdi::Stock &stock = gdi::stock();
    switch (which) {
    case WHITE_BRUSH:
        return stock.whiteBrush;
    case LTGRAY_BRUSH:
        return stock.lightGrayBrush;
    case GRAY_BRUSH:
        return stock.grayBrush;
    case DKGRAY_BRUSH:
        return stock.darkGrayBrush;
    case BLACK_BRUSH:
        return stock.blackBrush;
    case NULL_BRUSH:
        return stock.nullBrush;
    case WHITE_PEN:
        return stock.whitePen;
    case BLACK_PEN:
        return stock.blackPen;
    case NULL_PEN:
        return stock.nullPen;
    case SYSTEM_FONT:
        return stock.systemFont;
    default:
        return {};
    }
}
