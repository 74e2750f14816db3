// What the program keeps from one run to the next: the image of the GameApp, 2,496 bytes, in the
// registry, with a format number beside it.
#pragma once

struct GameApp;

/// Stores the whole object; false when the registry key could not be had.
bool saveSettings(const GameApp &app);
/// Replaces the whole object by the stored one. False, and nothing changes, when there is none,
/// when it has another format, or when the game could not work with it; then it is kept under
/// another name and the user is told which field is wrong.
bool loadSettings(GameApp &app);
