// The table of keys.
#include "host/sdl/keyboard.h"

#include "host/sdl/buttons.h"

namespace desktop {
namespace {

struct Entry
{
    SDL_Keycode code;
    std::uint16_t key;
};

constexpr Entry table[] = {
    {SDLK_LEFT, padLeft},   {SDLK_UP, padUp},         {SDLK_RIGHT, padRight},
    {SDLK_DOWN, padDown},   {SDLK_RETURN, padCentre}, {SDLK_KP_ENTER, padCentre},
    {SDLK_ESCAPE, buttonA}, {SDLK_p, buttonA},        {SDLK_c, buttonB},
    {SDLK_LSHIFT, buttonB}, {SDLK_z, buttonC},        {SDLK_LCTRL, buttonC},
    {SDLK_x, buttonD},      {SDLK_SPACE, buttonD},    {SDLK_BACKSPACE, 0x08},
    {SDLK_TAB, 0x09},       {SDLK_END, 0x23},         {SDLK_HOME, 0x24},
    {SDLK_DELETE, 0x2E},
};

/// Keyboards without Latin letters: a key is what it is on one that has them.
SDL_Keycode latinCode(const SDL_Keysym &key)
{
    const bool isLetter = key.scancode >= SDL_SCANCODE_A && key.scancode <= SDL_SCANCODE_Z;
    return isLetter && key.sym > 0x7F ? SDLK_a + (key.scancode - SDL_SCANCODE_A) : key.sym;
}

} // namespace

std::uint16_t virtualKey(const SDL_Keysym &key)
{
    const SDL_Keycode code = latinCode(key);
    for (const Entry &entry : table) {
        if (entry.code == code) {
            return entry.key;
        }
    }
    constexpr std::uint16_t keyF1 = 0x70;
    if (code >= SDLK_a && code <= SDLK_z) {
        return static_cast<std::uint16_t>('A' + (code - SDLK_a));
    }
    if (code >= SDLK_0 && code <= SDLK_9) {
        return static_cast<std::uint16_t>('0' + (code - SDLK_0));
    }
    if (code >= SDLK_F1 && code <= SDLK_F12) {
        return static_cast<std::uint16_t>(keyF1 + (code - SDLK_F1));
    }
    return 0;
}

bool isPointerKey(const SDL_Keysym &key)
{
    return key.sym == SDLK_RCTRL || key.sym == SDLK_APPLICATION || key.sym == SDLK_MENU;
}

} // namespace desktop
