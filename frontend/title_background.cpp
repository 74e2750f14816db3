// Copies the picture to the page that is being drawn.
#include "frontend/title_background.h"

#include "render/graphics.h"
#include "render/selection.h"

Surface *titleBitmap = nullptr;

void drawTitleBackground(HDC source, HDC target)
{
    const Selection background(source, titleBitmap->bitmap);
    BitBlt(target, 0, 0, screenWidth, screenHeight, source, 0, 0, SRCCOPY);
}
