// The table of handles; deletes and lists the objects in it.
#include "gdi/objects.h"

#include <deque>

namespace gdi {

namespace {

constexpr std::uint32_t indexBits = 16;
constexpr std::uint32_t indexMask = (1U << indexBits) - 1;
constexpr std::uint32_t lastGeneration = 0xFFFF;

struct Slot
{
    std::unique_ptr<Object> object;
    std::uint32_t generation = 1; ///< never 0, so no handle is 0
};

// Not a static in a function, which would cost a check at every look-up.
std::vector<Slot> slots;
/// The one that has been free longest is used next, so that generations are used up evenly.
std::deque<std::uint32_t> freeSlots;

bool ofProgram(const Slot &slot) { return slot.object && !slot.object->stock; }

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

std::uint32_t insert(std::unique_ptr<Object> object)
{
    if (freeSlots.empty()) {
        if (slots.size() > indexMask) {
            return 0;
        }
        freeSlots.push_back(static_cast<std::uint32_t>(slots.size()));
        slots.emplace_back();
    }
    const std::uint32_t index = freeSlots.front();
    freeSlots.pop_front();
    Slot &slot = slots[index];
    const std::uint32_t handle = slot.generation << indexBits | index;
    object->handle = {handle};
    slot.object = std::move(object);
    return handle;
}

Object *findObject(std::uint32_t handle)
{
    const std::uint32_t index = handle & indexMask;
    if (index >= slots.size()) {
        return nullptr;
    }
    const Slot &slot = slots[index];
    return slot.generation == handle >> indexBits ? slot.object.get() : nullptr;
}

void erase(std::uint32_t handle)
{
    const std::uint32_t index = handle & indexMask;
    Slot &slot = slots[index];
    slot.object.reset();
    // A slot that has used up its generations stays empty for good.
    if (slot.generation < lastGeneration) {
        ++slot.generation;
        freeSlots.push_back(index);
    }
}

void reset()
{
    for (const Slot &slot : slots) {
        if (ofProgram(slot)) {
            erase(slot.object->handle.value);
        }
    }
    resizeScreen(screen().width, screen().height);
}

std::vector<std::string> liveObjects()
{
    std::vector<std::string> lines;
    for (const Slot &slot : slots) {
        if (ofProgram(slot)) {
            lines.push_back(describe(*slot.object));
        }
    }
    return lines;
}

} // namespace gdi
