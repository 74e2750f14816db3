// Whether the game can work with a stored record: it may come from another program, or have been
// edited by hand.
#pragma once

#include <optional>
#include <string>

#include "app/app_record.h"

/// Names the first field that the game could not work with, with its value and what is allowed;
/// nothing when there is none.
[[nodiscard]] std::optional<std::string> findFault(const AppRecord &app);
