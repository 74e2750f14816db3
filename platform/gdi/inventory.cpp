// Deletes and lists the objects in the table.
#include "gdi/inventory.h"

#include "gdi/objects.h"
#include "gdi/screen.h"

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

void reset()
{
    visitObjects([](const Object &object) { erase(object.handle.value); });
    resizeScreen(screen().width, screen().height);
}

std::vector<std::string> liveObjects()
{
    std::vector<std::string> lines;
    visitObjects([&](const Object &object) { lines.push_back(describe(object)); });
    return lines;
}

} // namespace gdi
