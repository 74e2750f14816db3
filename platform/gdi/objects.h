// The objects behind the drawing handles, and the one table that finds them.
//
// A handle is the number of a slot in the table and a generation, which changes when the slot is
// freed: so the handle of a deleted object never finds a later object in the same slot.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "gdi/raster.h"
#include "gdi/rect.h"
#include "gdi/screen.h"
#include "gdi/strikes/strike.h"
#include "wingdi.h"

namespace gdi {

/// The selectable kinds come first: a device context has one of each selected.
enum class Kind : std::uint8_t
{
    Bitmap,
    Brush,
    Pen,
    Font,
    DeviceContext
};
constexpr std::size_t selectableKinds = 4;

struct Object
{
    Kind kind;
    bool stock = false; ///< always there, never deleted
    HGDIOBJ handle{};   ///< given by the table
    int selections = 0; ///< by device contexts, saved states included

    explicit Object(Kind itsKind) : kind(itsKind) {}
    virtual ~Object() = default;
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;
};

/// Every bitmap holds pixels of the display's format. `storedBits` is what GetObjectW reports.
struct Bitmap final : Object
{
    static constexpr Kind kindOf = Kind::Bitmap;

    std::unique_ptr<Pixel[]> pixels;
    int width;
    int height;
    WORD storedBits = 16;               ///< per pixel
    const Object *selectedIn = nullptr; ///< a device context; valid while `selections` > 0

    /// Black; null when a side is out of range or memory is short.
    static std::unique_ptr<Bitmap> make(int width, int height);
    Raster raster() const { return {pixels.get(), width, height}; }

private:
    Bitmap(std::unique_ptr<Pixel[]> itsPixels, int itsWidth, int itsHeight)
        : Object(kindOf), pixels(std::move(itsPixels)), width(itsWidth), height(itsHeight)
    {}
};

/// A brush or a pen.
template <Kind itsKind>
struct Ink final : Object
{
    static constexpr Kind kindOf = itsKind;
    std::optional<Pixel> pixel; ///< none: it draws nothing

    explicit Ink(std::optional<Pixel> itsPixel) : Object(kindOf), pixel(itsPixel) {}
};
using Brush = Ink<Kind::Brush>;
using Pen = Ink<Kind::Pen>;

struct Font final : Object
{
    static constexpr Kind kindOf = Kind::Font;
    LOGFONTW description; ///< as asked for
    const Strike &strike; ///< what it is drawn with

    explicit Font(const LOGFONTW &itsDescription);
};

/// What SaveDC saves.
struct Settings
{
    std::array<Object *, selectableKinds> selected{}; ///< by kind; no bitmap on the screen
    COLORREF textColour = RGB(0, 0, 0);
    int backgroundMode = OPAQUE;
    RECT clip = everywhere; ///< logical coordinates
};

struct DeviceContext final : Object
{
    static constexpr Kind kindOf = Kind::DeviceContext;
    const ScreenArea *area; ///< null: it draws into the bitmap that is selected
    std::optional<Region> within;
    Settings settings;
    std::vector<Settings> saved;

    DeviceContext(const ScreenArea *itsArea, const std::optional<Region> &itsWithin)
        : Object(kindOf), area(itsArea), within(itsWithin)
    {}
    /// The selected object of a kind. There is always one, except a bitmap on the screen.
    template <class T>
    const T &selected() const;
};

// The table ----------------------------------------------------------------------------------

/// Adds an object and returns the value of its handle; 0 when the table is full.
std::uint32_t insert(std::unique_ptr<Object> object);
/// The object of a handle; null when there is none.
Object *findObject(std::uint32_t handle);
void erase(std::uint32_t handle);
/// Back to the state at switch-on: no objects but the stock ones, a black screen.
void reset();
/// One line for each object that a program made and has not deleted: "bitmap 240x268",
/// "dc memory", "font 16 bold".
std::vector<std::string> liveObjects();

/// The object of that kind behind a handle; null when there is none.
template <class T>
T *find(std::uint32_t handle)
{
    Object *object = findObject(handle);
    return object && object->kind == T::kindOf ? static_cast<T *>(object) : nullptr;
}

template <class T>
const T &DeviceContext::selected() const
{
    return *static_cast<const T *>(settings.selected[static_cast<std::size_t>(T::kindOf)]);
}

/// The 1 by 1 bitmap that every memory device context starts with.
HGDIOBJ stockBitmap();
/// "System", 8 point.
LOGFONTW systemFontDescription();

} // namespace gdi
