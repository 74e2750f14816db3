// Whether the game can work with a stored block: it may come from another program, or from an
// editor's hand.
#pragma once

#include <optional>
#include <string>

struct GameApp;

/// Names the first field that the game could not work with, with its value and what is allowed;
/// nothing when there is none.
std::optional<std::string> findFault(const GameApp &app);
