// Device contexts: their making and end, what is selected in them, their settings.
#include <utility>

#include "gdi/canvas.h"

namespace gdi {

namespace {

void retain(HGDIOBJ handle, HDC by)
{
    if (Object *object = findObject(handle.value)) {
        object->selections++;
        if (object->kind == Kind::Bitmap) {
            static_cast<Bitmap *>(object)->selectedIn = by;
        }
    }
}

void release(HGDIOBJ handle)
{
    if (Object *object = findObject(handle.value)) {
        object->selections--;
    }
}

void retainAll(const Settings &settings, HDC by)
{
    for (const HGDIOBJ handle : settings.selected) {
        retain(handle, by);
    }
}

void releaseAll(const Settings &settings)
{
    for (const HGDIOBJ handle : settings.selected) {
        release(handle);
    }
}

HDC open(std::unique_ptr<DeviceContext> dc, HGDIOBJ bitmap)
{
    Settings &settings = dc->settings;
    settings.selected = {bitmap, GetStockObject(WHITE_BRUSH), GetStockObject(BLACK_PEN),
                         GetStockObject(SYSTEM_FONT)};
    const Settings initial = settings;
    const HDC handle{insert(std::move(dc))};
    if (handle) {
        retainAll(initial, handle);
    }
    return handle;
}

void close(HDC handle, const DeviceContext &dc)
{
    releaseAll(dc.settings);
    for (const Settings &settings : dc.saved) {
        releaseAll(settings);
    }
    erase(handle.value);
}

/// A bitmap has one place only: one device context at a time, and never the screen.
bool mayTake(const DeviceContext &dc, HDC handle, const Object &object)
{
    if (object.kind != Kind::Bitmap) {
        return object.kind != Kind::DeviceContext;
    }
    const auto &bitmap = static_cast<const Bitmap &>(object);
    return !dc.area && (bitmap.stock || bitmap.selections == 0 || bitmap.selectedIn == handle);
}

} // namespace

HDC openScreenDC(const ScreenArea &area, const std::optional<Region> &within)
{
    return open(std::make_unique<DeviceContext>(&area, within), {});
}

void closeScreenDC(HDC handle)
{
    const DeviceContext *dc = find<DeviceContext>(handle.value);
    if (dc && dc->area) {
        close(handle, *dc);
    }
}

} // namespace gdi

HDC CreateCompatibleDC(HDC)
{
    return gdi::open(std::make_unique<gdi::DeviceContext>(nullptr, std::nullopt),
                     gdi::stockBitmap());
}

BOOL DeleteDC(HDC handle)
{
    const auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    if (!dc || dc->area) {
        return FALSE;
    }
    gdi::close(handle, *dc);
    return TRUE;
}

HGDIOBJ SelectObject(HDC handle, HGDIOBJ object)
{
    auto *dc = gdi::find<gdi::DeviceContext>(handle.value);
    const gdi::Object *selected = gdi::findObject(object.value);
    if (!dc || !selected || !gdi::mayTake(*dc, handle, *selected)) {
        return {};
    }
    HGDIOBJ &place = dc->settings.selected[static_cast<std::size_t>(selected->kind)];
    gdi::release(place);
    gdi::retain(object, handle);
    return std::exchange(place, object);
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
    gdi::retainAll(dc->settings, handle);
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
