// The registry as text, in the syntax of ordinary registry editors.
//
// Reads UTF-8 and UTF-16LE files of version 5 and the older REGEDIT4 ones, with LF or CR LF. Writes
// UTF-8 with LF, the keys and values in their order.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <variant>

#include "registry/hive.h"

namespace registry {

/// Why a file cannot be read, and in which line, counted from 1.
struct Damage
{
    std::size_t line = 0;
    std::string reason;
};

[[nodiscard]] std::variant<Hive, Damage> readText(std::span<const std::byte> bytes);
std::string writeText(const Hive &hive);

} // namespace registry
