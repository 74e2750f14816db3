// Records in files.
#pragma once

#include <filesystem>

#include "record/record.h"

namespace record {

/// Reads the record in a file. One of the first versions has its store beside it, under the same
/// name with ".reg" behind it. `cut`: as for `read`. The problem begins with the file's name.
host::Result<Record> readFile(const std::filesystem::path &file, bool cut = false);

} // namespace record
