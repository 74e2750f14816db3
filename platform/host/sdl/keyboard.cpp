// From SDL's key codes to names.
#include "host/sdl/keyboard.h"

#include <algorithm>
#include <iterator>

namespace desktop {
namespace {

struct Entry
{
    SDL_Keycode code;
    const char *name;
};

constexpr Entry table[] = {
    {SDLK_LEFT, "ArrowLeft"},    {SDLK_UP, "ArrowUp"},          {SDLK_RIGHT, "ArrowRight"},
    {SDLK_DOWN, "ArrowDown"},    {SDLK_RETURN, "Enter"},        {SDLK_KP_ENTER, "Enter"},
    {SDLK_ESCAPE, "Escape"},     {SDLK_LSHIFT, "ShiftLeft"},    {SDLK_RSHIFT, "ShiftRight"},
    {SDLK_LCTRL, "ControlLeft"}, {SDLK_RCTRL, "ControlRight"},  {SDLK_APPLICATION, "ContextMenu"},
    {SDLK_MENU, "ContextMenu"},  {SDLK_BACKSPACE, "Backspace"}, {SDLK_TAB, "Tab"},
    {SDLK_PAGEUP, "PageUp"},     {SDLK_PAGEDOWN, "PageDown"},   {SDLK_END, "End"},
    {SDLK_HOME, "Home"},         {SDLK_DELETE, "Delete"},
};

/// On keyboards without Latin letters a key is what it would be on one with them.
SDL_Keycode latinCode(const SDL_Keysym &key)
{
    const bool isLetter = key.scancode >= SDL_SCANCODE_A && key.scancode <= SDL_SCANCODE_Z;
    return isLetter && key.sym > 0x7F ? SDLK_a + (key.scancode - SDL_SCANCODE_A) : key.sym;
}

} // namespace

std::string keyName(const SDL_Keysym &key)
{
    const SDL_Keycode code = latinCode(key);
    const auto *found = std::ranges::find(table, code, &Entry::code);
    if (found != std::end(table)) {
        return found->name;
    }
    if (code >= SDLK_F1 && code <= SDLK_F12) {
        return 'F' + std::to_string(code - SDLK_F1 + 1);
    }
    // SDL's codes of other keys that type are their characters.
    return code >= ' ' && code < 0x7F ? std::string(1, static_cast<char>(code)) : std::string();
}

} // namespace desktop
