// The drawing objects as a whole.
#pragma once

#include <string>
#include <vector>

namespace gdi {

/// Back to the state at switch-on: no objects but the stock ones, a black screen.
void reset();
/// One line for each object that a program made and has not deleted: "bitmap 240x268",
/// "dc memory", "font 16 bold".
std::vector<std::string> liveObjects();

} // namespace gdi
