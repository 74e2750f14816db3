// The help page, opened in the user's browser.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

#include "host/problem.h"

namespace host {

/// Writes the HTML page to a file in `folder` and has the desktop show it at the place `anchor`.
[[nodiscard]] Problem openHelpPage(const std::filesystem::path &folder,
                                   std::span<const std::byte> page, std::string_view anchor);

} // namespace host
