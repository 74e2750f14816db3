// The window is drawn through its surface, without a renderer or a graphics library.
#include "host/sdl/screen_window.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "host/sdl/lost_display.h"

namespace desktop {
namespace {

/// Pixels that a comfortable window leaves free, for its frame and other windows.
constexpr int roomAround = 64;

int comfortableScale(Size picture)
{
    SDL_Rect usable{};
    if (SDL_GetDisplayUsableBounds(0, &usable) != 0) {
        return 1;
    }
    return place(picture, {usable.w - roomAround, usable.h - roomAround}).scale;
}

std::vector<host::Area> screens()
{
    std::vector<host::Area> areas;
    for (int i = 0; i < SDL_GetNumVideoDisplays(); ++i) {
        SDL_Rect usable{};
        SDL_GetDisplayUsableBounds(i, &usable);
        areas.push_back({usable.x, usable.y, usable.x + usable.w, usable.y + usable.h});
    }
    return areas;
}

/// The window's size for the upright picture, from its size for this one, or the reverse.
Size uprightSize(Size window, Size picture)
{
    return picture.width < picture.height ? window : Size{window.height, window.width};
}

/// Initialises SDL's video with a driver that shows something: SDL alone would accept a dummy.
/// SDL_VIDEODRIVER in the environment overrules this.
bool startVideo()
{
    // Without a folder for sockets, Wayland's library complains on the terminal.
    const bool tryWayland = std::getenv("XDG_RUNTIME_DIR") != nullptr;
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1"); // until it is asked not to
    SDL_SetHint(SDL_HINT_VIDEODRIVER, tryWayland ? "x11,wayland,KMSDRM" : "x11,KMSDRM");
    return SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
}

/// Whether SDL can draw on the display without a graphics library: not with 10 bits a colour.
bool canDrawPlainly()
{
    const char *driver = SDL_GetCurrentVideoDriver();
    SDL_DisplayMode mode{};
    return driver && std::strcmp(driver, "x11") == 0 && SDL_GetCurrentDisplayMode(0, &mode) == 0 &&
           mode.format != SDL_PIXELFORMAT_UNKNOWN;
}

/// Keeps SDL from drawing through OpenGL, from switching the compositor off, and from leaving full
/// screen when another window gets the focus.
void setHints()
{
    if (canDrawPlainly()) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
}

void drawPointer(const host::PointerLook &look, const host::Frame &frame,
                 const Placement &placement, const Canvas &canvas)
{
    const host::Area area = host::pointerArea(look, {frame.width, frame.height});
    const auto pixels = host::pointerPixels(look, frame);
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    const int scale = placement.scale;
    drawEnlarged({pixels.data(), width, height}, {0, 0, width, height},
                 {scale, placement.left + area.left * scale, placement.top + area.top * scale},
                 canvas);
}

} // namespace

std::unique_ptr<ScreenWindow> ScreenWindow::make(Size picture, std::optional<int> scale,
                                                 std::optional<WindowPlace> last)
{
    if (!startVideo()) {
        return nullptr;
    }
    setHints();
    SDL_StopTextInput();
    const bool again = !scale && last && isOnScreen(*last, screens());
    const int factor = scale ? *scale : comfortableScale(picture);
    const Size size = again ? uprightSize(last->size, picture)
                            : Size{picture.width * factor, picture.height * factor};
    constexpr int centred = SDL_WINDOWPOS_CENTERED;
    const Point corner = again ? last->corner : Point{centred, centred};
    constexpr Uint32 flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI;
    SDL_Window *window = SDL_CreateWindow("", corner.x, corner.y, size.width, size.height, flags);
    if (!window) {
        return nullptr;
    }
    SDL_SetWindowMinimumSize(window, picture.width, picture.height);
    return std::unique_ptr<ScreenWindow>(new ScreenWindow(window, picture));
}

void ScreenWindow::showMessage(const char *title, const char *text)
{
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_INFORMATION, title, text, window_.get());
}

void ScreenWindow::describe(const std::string &name, const host::Icon &icon)
{
    SDL_SetHint(SDL_HINT_APP_NAME, name.c_str()); // in the desktop's volume control
    if (icon.rgba.empty()) {
        return;
    }
    std::vector<std::uint8_t> pixels = icon.rgba;
    const std::unique_ptr<SDL_Surface, Destroy> surface(SDL_CreateRGBSurfaceWithFormatFrom(
        pixels.data(), icon.width, icon.height, 32, icon.width * 4, SDL_PIXELFORMAT_RGBA32));
    if (surface) {
        SDL_SetWindowIcon(window_.get(), surface.get());
    }
}

bool ScreenWindow::show(const host::Frame &frame, const host::Area &changed)
{
    frame_ = frame;
    const Size picture{frame.width, frame.height};
    const bool turned = picture.width != picture_.width;
    if (turned) {
        fitTo(picture);
    }
    const bool first = !std::exchange(shown_, true);
    if (first) {
        SDL_ShowWindow(window_.get());
        listenForLostDisplay(window_.get()); // SDL would wait in vain for a window to be shown
    }
    const bool drawn = draw(shownFrame_.update(frame, changed), turned || first);
    if (!drawn) {
        shownFrame_ = {};
    }
    return drawn;
}

void ScreenWindow::showAgain()
{
    if (frame_.pixels) {
        draw({}, true);
    }
}

void ScreenWindow::showPointer(const std::optional<host::PointerLook> &pointer)
{
    if (pointer == pointer_) {
        return;
    }
    if (pointer.has_value() != pointer_.has_value()) {
        SDL_ShowCursor(pointer ? SDL_DISABLE : SDL_ENABLE);
    }
    const auto before = std::exchange(pointer_, pointer);
    for (const auto &look : {before, pointer_}) {
        if (look) {
            draw(host::pointerArea(*look, picture_));
        }
    }
}

/// The window turns with the picture, unless it is maximized or fills the screen.
void ScreenWindow::fitTo(Size picture)
{
    Size window;
    SDL_GetWindowSize(window_.get(), &window.width, &window.height);
    const int scale = place(picture_, window).scale;
    picture_ = picture;
    SDL_SetWindowMinimumSize(window_.get(), picture.width, picture.height);
    if (!isAnyOf(SDL_WINDOW_FULLSCREEN_DESKTOP | SDL_WINDOW_MAXIMIZED)) {
        SDL_SetWindowSize(window_.get(), picture.width * scale, picture.height * scale);
    }
}

/// The surface itself where its pixels have 32 bits, else one to be copied to it.
SDL_Surface *ScreenWindow::canvasFor(SDL_Surface *target)
{
    if (target->format->BytesPerPixel == sizeof(std::uint32_t)) {
        return target;
    }
    if (!canvas_ || canvas_->w != target->w || canvas_->h != target->h) {
        canvas_.reset(
            SDL_CreateRGBSurfaceWithFormat(0, target->w, target->h, 32, SDL_PIXELFORMAT_RGB888));
    }
    return canvas_.get();
}

bool ScreenWindow::draw(const host::Area &part, bool everything)
{
    SDL_Surface *target = SDL_GetWindowSurface(window_.get());
    SDL_Surface *surface = target ? canvasFor(target) : nullptr;
    if (!surface) {
        return false;
    }
    const Size size{surface->w, surface->h};
    const SDL_PixelFormat &format = *surface->format;
    const Canvas canvas{static_cast<std::byte *>(surface->pixels),
                        static_cast<std::size_t>(surface->pitch),
                        size,
                        format.Rshift,
                        format.Gshift,
                        format.Bshift};
    const Placement placement = place(picture_, size);
    const bool fills = picture_.width * placement.scale == size.width &&
                       picture_.height * placement.scale == size.height;
    if (everything && !fills) {
        SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0, 0, 0));
    }
    const host::Area all{0, 0, frame_.width, frame_.height};
    const host::Area changed = drawEnlarged(frame_, everything ? all : part, placement, canvas);
    if (pointer_) {
        drawPointer(*pointer_, frame_, placement, canvas);
    }
    SDL_Rect rect{changed.left, changed.top, changed.right - changed.left,
                  changed.bottom - changed.top};
    if (everything) {
        rect = {0, 0, size.width, size.height};
    }
    if (surface != target) {
        SDL_Rect where = rect;
        SDL_BlitSurface(surface, &rect, target, &where);
    }
    return SDL_UpdateWindowSurfaceRects(window_.get(), &rect, 1) == 0;
}

void ScreenWindow::toggleFullScreen()
{
    constexpr Uint32 full = SDL_WINDOW_FULLSCREEN_DESKTOP;
    SDL_SetWindowFullscreen(window_.get(), isAnyOf(full) ? 0 : full);
}

void ScreenWindow::raise()
{
    if (isAnyOf(SDL_WINDOW_MINIMIZED)) {
        SDL_RestoreWindow(window_.get());
    }
    SDL_RaiseWindow(window_.get());
}

void ScreenWindow::notePlace()
{
    constexpr Uint32 elsewhere =
        SDL_WINDOW_FULLSCREEN | SDL_WINDOW_MAXIMIZED | SDL_WINDOW_MINIMIZED | SDL_WINDOW_HIDDEN;
    if (isAnyOf(elsewhere)) {
        return;
    }
    Point corner;
    Size size;
    int left = 0;
    int top = 0;
    SDL_GetWindowPosition(window_.get(), &corner.x, &corner.y);
    SDL_GetWindowSize(window_.get(), &size.width, &size.height);
    SDL_GetWindowBordersSize(window_.get(), &top, &left, nullptr, nullptr);
    lastPlace_ = WindowPlace{{corner.x - left, corner.y - top}, uprightSize(size, picture_)};
}

std::optional<WindowPlace> ScreenWindow::lastPlace()
{
    notePlace(); // the width of the desktop's frame is not known from the beginning
    return lastPlace_;
}

std::optional<Point> ScreenWindow::pictureAt(Point window, bool outside) const
{
    Size size;
    Size pixels;
    SDL_GetWindowSize(window_.get(), &size.width, &size.height);
    SDL_GetWindowSizeInPixels(window_.get(), &pixels.width, &pixels.height);
    return toPicture(toPixels(window, size, pixels), place(picture_, pixels), picture_, outside);
}

} // namespace desktop
