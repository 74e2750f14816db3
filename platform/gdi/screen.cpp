// The display's memory.
#include "gdi/screen.h"

namespace gdi {

Screen &screen()
{
    static Screen display;
    return display;
}

void resizeScreen(int width, int height)
{
    Screen &display = screen();
    display.width = width;
    display.height = height;
    display.pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    display.changed = {0, 0, width, height};
}

} // namespace gdi
