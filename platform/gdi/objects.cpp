// The table of handles.
#include "gdi/objects.h"

#include <deque>
#include <new>

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

struct Table
{
    std::vector<Slot> slots;
    std::deque<std::uint32_t> freeSlots; ///< used again in turn, to spread the generations
};

Table &table()
{
    static Table theTable;
    return theTable;
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

std::uint32_t insert(std::unique_ptr<Object> object)
{
    auto &[slots, freeSlots] = table();
    if (freeSlots.empty()) {
        if (slots.size() > indexMask) {
            return 0;
        }
        freeSlots.push_back(static_cast<std::uint32_t>(slots.size()));
        slots.emplace_back();
    }
    const std::uint32_t index = freeSlots.front();
    freeSlots.pop_front();
    slots[index].object = std::move(object);
    return slots[index].generation << indexBits | index;
}

Object *findObject(std::uint32_t handle)
{
    const std::vector<Slot> &slots = table().slots;
    const std::uint32_t index = handle & indexMask;
    if (index >= slots.size() || slots[index].generation != handle >> indexBits) {
        return nullptr;
    }
    return slots[index].object.get();
}

void erase(std::uint32_t handle)
{
    auto &[slots, freeSlots] = table();
    const std::uint32_t index = handle & indexMask;
    Slot &slot = slots[index];
    slot.object.reset();
    // A slot that has used up its generations stays empty for good.
    if (slot.generation < lastGeneration) {
        slot.generation++;
        freeSlots.push_back(index);
    }
}

void visitObjects(const std::function<void(std::uint32_t, const Object &)> &visitor)
{
    const std::vector<Slot> &slots = table().slots;
    for (std::uint32_t index = 0; index < slots.size(); index++) {
        if (slots[index].object) {
            visitor(slots[index].generation << indexBits | index, *slots[index].object);
        }
    }
}

} // namespace gdi
