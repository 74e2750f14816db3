// The display's memory, and the whole of the drawing system: switching on, taking stock.
#include "gdi/screen.h"

#include "gdi/objects.h"

namespace gdi {

namespace {

std::string describe(const Object &object)
{
    switch (object.kind) {
    case Kind::Bitmap: {
        const auto &bitmap = static_cast<const Bitmap &>(object);
        return "bitmap " + std::to_string(bitmap.width) + "x" + std::to_string(bitmap.height);
    }
    case Kind::Brush:
        return "brush";
    case Kind::Pen:
        return "pen";
    case Kind::Font: {
        const Strike &strike = static_cast<const Font &>(object).strike;
        return "font " + std::to_string(strike.height()) + (strike.bold ? " bold" : "");
    }
    case Kind::DeviceContext:
        return static_cast<const DeviceContext &>(object).area ? "dc screen" : "dc memory";
    }
    return {};
}

} // namespace

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

void reset()
{
    visitObjects([](const Object &object) {
        if (!object.stock) {
            erase(object.handle.value);
        }
    });
    resizeScreen(screen().width, screen().height);
}

std::vector<std::string> liveObjects()
{
    std::vector<std::string> lines;
    visitObjects([&](const Object &object) {
        if (!object.stock) {
            lines.push_back(describe(object));
        }
    });
    return lines;
}

} // namespace gdi
