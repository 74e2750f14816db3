// Converts pictures to the display's format once, so that no later copy has to.
#include "render/surface.h"

#include "render/selection.h"
#include "resources/module.h"

bool Surface::createBlank(HDC reference, int newWidth, int newHeight)
{
    bitmap = CreateCompatibleBitmap(reference, newWidth, newHeight);
    width = bitmap ? newWidth : 0;
    height = bitmap ? newHeight : 0;
    return static_cast<bool>(bitmap);
}

bool Surface::loadFromResource(HDC reference, UINT resource)
{
    const HBITMAP loaded = LoadBitmapW(moduleInstance, MAKEINTRESOURCEW(resource));
    if (!loaded) {
        return false;
    }
    BITMAP description{};
    GetObjectW(loaded, sizeof description, &description);
    createBlank(reference, description.bmWidth, description.bmHeight);

    const HDC source = CreateCompatibleDC(reference);
    const HDC target = CreateCompatibleDC(reference);
    {
        const Selection from(source, loaded);
        const Selection to(target, bitmap);
        BitBlt(target, 0, 0, description.bmWidth, description.bmHeight, source, 0, 0, SRCCOPY);
    }
    DeleteDC(target);
    DeleteDC(source);
    DeleteObject(loaded);
    return static_cast<bool>(bitmap);
}
