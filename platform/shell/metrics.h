// The rows of the screen that the shell keeps for itself, in pixels.
#pragma once

namespace shell {

constexpr int titleBarHeight = 26;
constexpr int menuBarHeight = 26;

} // namespace shell
