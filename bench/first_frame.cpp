// Preloaded into a program, prints on standard output when it has shown its first frame: the
// machine's clock in nanoseconds. It needs only the C library: any other would also be loaded into
// the minimal program, and the comparison would not be fair.
#include <cstdio>
#include <ctime>

#include <SDL_video.h>
#include <dlfcn.h>

extern "C" int SDL_UpdateWindowSurfaceRects(SDL_Window *window, const SDL_Rect *rects, int count)
{
    const auto show = reinterpret_cast<decltype(&SDL_UpdateWindowSurfaceRects)>(
        dlsym(RTLD_NEXT, "SDL_UpdateWindowSurfaceRects"));
    static bool first = true;
    const int result = show(window, rects, count);
    if (first) {
        first = false;
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        std::printf("%lld\n", now.tv_sec * 1'000'000'000LL + now.tv_nsec);
        std::fflush(stdout);
    }
    return result;
}
