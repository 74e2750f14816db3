// SDL, for this folder alone. It is not to take over main().
#pragma once

#define SDL_MAIN_HANDLED
#include <SDL.h>
