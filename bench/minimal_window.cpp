// The least that a program with a window must do: what the game's start and memory are held to.
// The window is the game's, and like the game's it is drawn without a graphics library.
#include <cstdlib>

#include <SDL.h>

int main(int argc, char **argv)
{
    const int scale = argc > 1 ? std::atoi(argv[1]) : 1;
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        return 1;
    }
    SDL_Window *window = SDL_CreateWindow("Minimal", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                          240 * scale, 320 * scale, SDL_WINDOW_RESIZABLE);
    SDL_Surface *surface = window ? SDL_GetWindowSurface(window) : nullptr;
    if (!surface) {
        return 1;
    }
    const SDL_Rect all{0, 0, surface->w, surface->h};
    SDL_FillRect(surface, &all, SDL_MapRGB(surface->format, 0, 64, 128));
    SDL_UpdateWindowSurfaceRects(window, &all, 1);
    SDL_Event event;
    while (SDL_WaitEvent(&event) != 0 && event.type != SDL_QUIT) {
    }
    SDL_Quit();
    return 0;
}
