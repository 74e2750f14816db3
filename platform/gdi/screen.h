// The display's memory, and the parts of it that windows lend to device contexts.
#pragma once

#include <optional>
#include <vector>

#include "gdi/pixel.h"
#include "gdi/region.h"
#include "windef.h"

namespace gdi {

/// The display: 5-6-5 pixels, row by row from the top.
struct Screen
{
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;
    RECT changed{}; ///< encloses all pixels drawn since this was last emptied
};

Screen &screen();
/// Gives the display another size; its pixels become black and changed.
void resizeScreen(int width, int height);

/// A part of the screen that belongs to a window. Every drawing call asks for its position anew, so
/// a device context follows its window.
class ScreenArea
{
public:
    virtual ~ScreenArea() = default;
    /// The screen position of the area's (0, 0).
    virtual POINT origin() const = 0;
    virtual SIZE size() const = 0;
    /// The part that is visible now, in screen pixels.
    virtual const Region &visible() const = 0;
};

/// A device context that draws on the screen, inside the visible part of `area` and, when given,
/// inside `within` (screen pixels). The area must outlive it. It starts with the settings of a new
/// memory device context.
[[nodiscard]] HDC openScreenDC(const ScreenArea &area, const std::optional<Region> &within);
/// False when `dc` is not a device context on the screen.
bool closeScreenDC(HDC dc);

} // namespace gdi
