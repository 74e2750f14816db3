// The registry as text, in the syntax of ordinary registry editors.
//
// Reads UTF-8 and UTF-16 files of version 5 and the older REGEDIT4 ones, with LF or CR LF. Writes
// UTF-8 with LF, the keys and values in their order, and before a key those above it, because not
// every editor makes them by itself.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "registry/hive.h"

namespace registry {

/// Replaces `hive` by what the file holds. When the file cannot be read, `hive` stays as it was,
/// and the result is the problem: "line N: REASON", N counted from 1.
[[nodiscard]] std::optional<std::string> readText(std::span<const std::byte> bytes, Hive &hive);
std::string writeText(const Hive &hive);

} // namespace registry
