// Device contexts: their making and end, what is selected in them, their settings.
#include <utility>

#include "gdi/canvas.h"

namespace gdi {

namespace {

void retain(Object &object, const DeviceContext &by)
{
    object.selections++;
    if (object.kind == Kind::Bitmap) {
        static_cast<Bitmap &>(object).selectedIn = &by;
    }
}

void retainAll(const DeviceContext &dc)
{
    for (Object *object : dc.settings.selected) {
        if (object) {
            retain(*object, dc);
        }
    }
}

void releaseAll(const Settings &settings)
{
    for (Object *object : settings.selected) {
        if (object) {
            object->selections--;
        }
    }
}

/// Selects what a new device context starts with; `bitmap` is null for the screen.
HDC open(std::unique_ptr<DeviceContext> dc, Object *bitmap)
{
    DeviceContext &opened = *dc;
    opened.settings.selected = {bitmap, findObject(GetStockObject(WHITE_BRUSH).value),
                                findObject(GetStockObject(BLACK_PEN).value),
                                findObject(GetStockObject(SYSTEM_FONT).value)};
    const HDC handle{insert(std::move(dc))};
    if (handle) {
        retainAll(opened);
    }
    return handle;
}

void close(const DeviceContext &dc)
{
    releaseAll(dc.settings);
    for (const Settings &settings : dc.saved) {
        releaseAll(settings);
    }
    erase(dc.handle.value);
}

/// A bitmap has one place only: one device context at a time, and never the screen.
bool mayTake(const DeviceContext &dc, const Object &object)
{
    if (object.kind != Kind::Bitmap) {
        return object.kind != Kind::DeviceContext;
    }
    const auto &bitmap = static_cast<const Bitmap &>(object);
    return !dc.area && (bitmap.stock || bitmap.selections == 0 || bitmap.selectedIn == &dc);
}

} // namespace

HDC openScreenDC(const ScreenArea &area, const std::optional<Region> &within)
{
    return open(std::make_unique<DeviceContext>(&area, within), nullptr);
}

void closeScreenDC(HDC handle)
{
    const DeviceContext *dc = find<DeviceContext>(handle.value);
    if (dc && dc->area) {
        close(*dc);
    }
}

} // namespace gdi

HDC CreateCompatibleDC(HDC)
{
    return gdi::open(std::make_unique<gdi::DeviceContext>(nullptr, std::nullopt),
                     gdi::findObject(gdi::stockBitmap().value));
}

BOOL DeleteDC(HDC handle)
{
    const auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    if (!dc || dc->area) {
        return FALSE;
    }
    gdi::close(*dc);
    return TRUE;
}

HGDIOBJ SelectObject(HDC handle, HGDIOBJ objectHandle)
{
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    gdi::Object *object = gdi::findObject(objectHandle.value);
    if (!dc || !object || !gdi::mayTake(*dc, *object)) {
        return {};
    }
    gdi::Object *&place = dc->settings.selected[static_cast<std::size_t>(object->kind)];
    gdi::retain(*object, *dc);
    place->selections--;
    return std::exchange(place, object)->handle;
}

BOOL DeleteObject(HGDIOBJ handle)
{
    const gdi::Object *object = gdi::findObject(handle.value);
    if (!object || object->kind == gdi::Kind::DeviceContext || object->stock ||
        object->selections > 0) {
        return FALSE;
    }
    gdi::erase(handle.value);
    return TRUE;
}

int IntersectClipRect(HDC handle, int left, int top, int right, int bottom)
{
    constexpr int failed = 0;
    constexpr int empty = 1;
    constexpr int rectangle = 2;
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    if (!dc) {
        return failed;
    }
    RECT &clip = dc->settings.clip;
    clip = gdi::intersection(clip, {left, top, right, bottom});
    return gdi::isEmpty(clip) ? empty : rectangle;
}

int SaveDC(HDC handle)
{
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    if (!dc) {
        return 0;
    }
    gdi::retainAll(*dc);
    dc->saved.push_back(dc->settings);
    return static_cast<int>(dc->saved.size());
}

BOOL RestoreDC(HDC handle, int level)
{
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    if (!dc) {
        return FALSE;
    }
    const int levels = static_cast<int>(dc->saved.size());
    const int wanted = level == -1 ? levels : level;
    if (wanted < 1 || wanted > levels) {
        return FALSE;
    }
    for (int i = levels; i >= wanted; i--) {
        gdi::releaseAll(dc->settings);
        dc->settings = dc->saved.back();
        dc->saved.pop_back();
    }
    return TRUE;
}

int SetBkMode(HDC handle, int mode)
{
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    return dc ? std::exchange(dc->settings.backgroundMode, mode) : 0;
}

COLORREF SetTextColor(HDC handle, COLORREF colour)
{
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    return dc ? std::exchange(dc->settings.textColour, colour) : CLR_INVALID;
}

COLORREF SetBkColor(HDC handle, COLORREF colour)
{
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    return dc ? std::exchange(dc->settings.backgroundColour, colour) : CLR_INVALID;
}
