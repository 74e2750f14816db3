// The help page, opened in the user's browser.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace host {

/// Writes the HTML page to a file in `folder` and has the desktop show it at the place `anchor`.
/// Returns why it could not, or an empty text.
std::string openHelpPage(const std::filesystem::path &folder, std::span<const std::byte> page,
                         std::string_view anchor);

} // namespace host
