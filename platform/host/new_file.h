// Files that grow.
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "host/problem.h"

namespace host {

/// Appends text to a file, at once.
using Append = std::function<Problem(std::string_view)>;

/// Makes the file, which must not exist, not even as a link, and returns what writes to it. The
/// file is closed with that.
Result<Append> makeFile(const std::filesystem::path &file);
/// Appends to a file that exists.
Problem appendToFile(const std::filesystem::path &file, std::string_view text);

} // namespace host
