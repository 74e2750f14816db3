// The table of handles.
#include "gdi/objects.h"

#include <utility>

namespace gdi {

namespace {

constexpr std::uint32_t indexBits = 16;
constexpr std::uint32_t indexMask = (1U << indexBits) - 1;
constexpr std::uint32_t lastGeneration = 0xFFFF;

constexpr std::uint32_t noSlot = 0xFFFFFFFF;

struct Slot
{
    std::unique_ptr<Object> object;
    std::uint32_t generation = 1; ///< never 0, so no handle is 0
    std::uint32_t nextFree = noSlot;
};

/// Free slots are used again in turn, which spreads the generations.
struct Table
{
    std::vector<Slot> slots;
    std::uint32_t firstFree = noSlot;
    std::uint32_t lastFree = noSlot;
};

// A plain variable, so that a look-up need not ask whether it is there.
Table table;

void freeSlot(std::uint32_t index)
{
    if (table.firstFree == noSlot) {
        table.firstFree = index;
    } else {
        table.slots[table.lastFree].nextFree = index;
    }
    table.lastFree = index;
}

std::uint32_t takeSlot()
{
    const std::uint32_t index = table.firstFree;
    table.firstFree = std::exchange(table.slots[index].nextFree, noSlot);
    return index;
}

} // namespace

std::uint32_t insert(std::unique_ptr<Object> object)
{
    if (table.firstFree == noSlot) {
        const std::size_t count = table.slots.size();
        if (count > indexMask) {
            return 0;
        }
        table.slots.emplace_back();
        freeSlot(static_cast<std::uint32_t>(count));
    }
    const std::uint32_t index = takeSlot();
    Slot &slot = table.slots[index];
    const std::uint32_t handle = slot.generation << indexBits | index;
    object->handle = {handle};
    slot.object = std::move(object);
    return handle;
}

Object *findObject(std::uint32_t handle)
{
    const std::uint32_t index = handle & indexMask;
    if (index >= table.slots.size()) {
        return nullptr;
    }
    const Slot &slot = table.slots[index];
    return slot.generation == handle >> indexBits ? slot.object.get() : nullptr;
}

void erase(std::uint32_t handle)
{
    const std::uint32_t index = handle & indexMask;
    Slot &slot = table.slots[index];
    slot.object.reset();
    // A slot that has used up its generations stays empty for good.
    if (slot.generation < lastGeneration) {
        ++slot.generation;
        freeSlot(index);
    }
}

void visitObjects(const std::function<void(const Object &)> &visitor)
{
    for (const Slot &slot : table.slots) {
        if (slot.object) {
            visitor(*slot.object);
        }
    }
}

} // namespace gdi
