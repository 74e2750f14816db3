// The Buttons page: assigns hardware keys to the game's actions.
#pragma once

#include <windows.h>

struct InputState;

/// Lets the player change the keys of `input`, each change at once. Returns when the page has
/// closed.
void showButtonsDialog(InputState &input, HWND parent);
