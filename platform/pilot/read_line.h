// Reads a script line by line.
#pragma once

#include <optional>
#include <string>

#include "host/problem.h"

namespace pilot {

/// Reads a line from a file descriptor, without its end, and not a byte further: the next process
/// goes on with the next line. None at the end of the file.
host::Result<std::optional<std::string>> readLine(int descriptor);

} // namespace pilot
