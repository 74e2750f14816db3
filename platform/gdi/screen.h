// The display's memory, and the parts of it that windows lend to device contexts.
#pragma once

#include <cstddef>
#include <cstdint>
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
    RECT changed{}; ///< what was drawn on since this was last emptied
};

Screen &screen();
/// Gives the display another size; its pixels become black and changed.
void resizeScreen(int width, int height);

/// A part of the screen that belongs to a window. It is asked at every drawing call, so a device
/// context that is kept follows its window.
class ScreenArea
{
public:
    virtual ~ScreenArea() = default;
    /// The screen position of the area's (0, 0).
    virtual POINT origin() const = 0;
    virtual SIZE size() const = 0;
    /// The visible part at the moment, in screen pixels.
    virtual const Region &visible() const = 0;
};

} // namespace gdi
