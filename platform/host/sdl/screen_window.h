// The window that shows the handheld's screen.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/host.h"
#include "host/pointer_picture.h"
#include "host/sdl/picture.h"
#include "host/sdl/sdl.h"
#include "host/sdl/window_place.h"
#include "host/shown_frame.h"

namespace desktop {

/// Where the desktop enlarges what windows show, its points are larger than the pixels that the
/// window is drawn with; the mouse and the window's place are in points.
class ScreenWindow
{
public:
    /// Makes the window, hidden until something is shown, for a picture of that size, enlarged
    /// by `scale`. Without a scale it takes the last place and size; when they are not known, or
    /// off the screens, a comfortable size. Null when there is no display.
    static std::unique_ptr<ScreenWindow> make(Size picture, std::optional<int> scale,
                                              std::optional<WindowPlace> last);

    /// The program's name and icon, for the desktop.
    void describe(const std::string &name, const host::Icon &icon);
    void setTitle(const std::string &title) { SDL_SetWindowTitle(window_.get(), title.c_str()); }
    /// Shows a text until the user has read it.
    void showMessage(const char *title, const char *text);
    /// Shows the frame, of which `changed` was drawn since the last one shown. False when that
    /// failed; SDL_GetError says why.
    bool show(const host::Frame &frame, const host::Area &changed);
    /// Shows all of it again, after the window was resized or covered.
    void showAgain();
    /// Shows the stylus pointer over the frame, or hides it. While it shows, the mouse's is hidden.
    void showPointer(const std::optional<host::PointerLook> &pointer);
    void toggleFullScreen();
    /// Brings it to the front, also from the task bar.
    void raise();
    /// To be called when it was moved or resized.
    void notePlace();
    /// Where it was last while it did not fill the screen; none when that is not known.
    std::optional<WindowPlace> lastPlace();

    /// To be called when the display is gone: from then on all of the above does nothing.
    void abandon() { static_cast<void>(window_.release()); } // destroying it would never end

    /// What is shown; no pixels before the first time.
    const host::Frame &frame() const { return frame_; }
    /// The pixel of the picture at a point of the window. With `outside`, a point beside the
    /// picture gives the nearest pixel, else none.
    std::optional<Point> pictureAt(Point window, bool outside) const;

private:
    struct Destroy
    {
        void operator()(SDL_Window *w) const { SDL_DestroyWindow(w); }
        void operator()(SDL_Surface *s) const { SDL_FreeSurface(s); }
    };
    ScreenWindow(SDL_Window *window, Size picture) : window_(window), picture_(picture) {}
    bool isAnyOf(Uint32 flags) const { return (SDL_GetWindowFlags(window_.get()) & flags) != 0; }
    void fitTo(Size picture);
    SDL_Surface *canvasFor(SDL_Surface *target);
    bool draw(const host::Area &part, bool everything = false);

    std::unique_ptr<SDL_Window, Destroy> window_;
    std::unique_ptr<SDL_Surface, Destroy> canvas_; ///< for displays without 32-bit pixels
    Size picture_;
    host::Frame frame_;
    host::ShownFrame shownFrame_;
    std::optional<host::PointerLook> pointer_;
    std::optional<WindowPlace> lastPlace_;
    bool shown_ = false;
};

} // namespace desktop
