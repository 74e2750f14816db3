// The display's memory, and how the window manager lends parts of it to device contexts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "gdi/region.h"
#include "windef.h"

namespace gdi {

/// The display: 5-6-5 pixels, row by row from the top.
struct Screen
{
    int width = 0;
    int height = 0;
    std::vector<std::uint16_t> pixels;
    RECT changed{}; ///< what was drawn on since the owner of the screen last emptied it
};

Screen &screen();
/// Gives the display another size; its pixels become black and changed.
void resizeScreen(int width, int height);

/// A part of the screen that belongs to a window. It is asked at every drawing call, so a device
/// context kept for a window's whole life follows the window wherever it goes.
class ScreenArea
{
public:
    virtual ~ScreenArea() = default;
    /// Where the area's (0, 0) lies on the screen.
    virtual POINT origin() const = 0;
    virtual SIZE size() const = 0;
    /// What of it can be seen at the moment, in screen pixels.
    virtual const Region &visible() const = 0;
};

/// A device context that draws on the screen, inside what is visible of `area` and, when given,
/// inside `within` (screen pixels). The area must outlive it. With the settings of a new memory
/// device context.
HDC openScreenDC(const ScreenArea &area, const std::optional<Region> &within);
/// False when it is none.
bool closeScreenDC(HDC dc);

/// Back to the state at switch-on: no objects but the stock ones, a black screen.
void reset();
/// One line for each object that a program made and has not deleted: "bitmap 240x268",
/// "dc memory", "font 16 bold".
std::vector<std::string> liveObjects();

} // namespace gdi
