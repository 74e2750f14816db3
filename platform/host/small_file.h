// Reads files that may be anything.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "host/problem.h"

namespace host {

/// The bytes of an ordinary file. Anything else, such as a pipe, is a problem, and so is a file of
/// more than `most` bytes.
Result<std::string> readSmallFile(const std::filesystem::path &file, std::size_t most);

} // namespace host
