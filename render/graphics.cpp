// Makes and frees the graphic objects, including those of a session.
#include "render/graphics.h"

#include "engine/game_session.h"
#include "render/lettering.h"
#include "resources/resource.h"

namespace {

constexpr int statsFontHeight = 16;
constexpr std::array<UINT, 3> backdropResources{IDB_BACKDROP_0, IDB_BACKDROP_1, IDB_BACKDROP_2};
constexpr int tileSheetWidth = 77; // seven columns of tiles 11 pixels wide
constexpr int tileSheetHeight = 66;

} // namespace

HDC windowDC{};
Surface *screenSurface = nullptr;
std::array<Surface *, 3> backdrops{};
Surface *tileSheet = nullptr;
HFONT statsFont{};

Surface *loadPicture(HDC reference, UINT resource, int width, int height)
{
    auto *surface = new Surface(reference, resource);
    if (!surface->bitmap) {
        surface->createBlank(reference, width, height);
    }
    return surface;
}

void deleteSurface(Surface *&surface)
{
    if (surface) {
        surface->release();
        delete surface;
        surface = nullptr;
    }
}

int GameSession::create(HWND window)
{
    const HDC reference = GetDC(window);
    statsFont = createBoldFont(statsFontHeight);
    for (std::size_t i = 0; i < backdrops.size(); ++i) {
        backdrops[i] = loadPicture(reference, backdropResources[i], screenWidth, screenHeight);
    }
    tileSheet = loadPicture(reference, IDB_TILES, tileSheetWidth, tileSheetHeight);
    tileDC = CreateCompatibleDC(reference);
    backDC = CreateCompatibleDC(reference);
    ReleaseDC(window, reference);
    now = timing::now();
    return 1;
}

int GameSession::destroy(HWND window)
{
    KillTimer(window, mainTimer);
    for (Surface *&backdropSurface : backdrops) {
        deleteSurface(backdropSurface);
    }
    deleteSurface(tileSheet);
    DeleteObject(statsFont);
    statsFont = {};
    DeleteDC(tileDC);
    DeleteDC(backDC);
    return 1;
}
