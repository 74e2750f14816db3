// Files that other people and programs reach, too: what is read may be anything, and what is
// written is written as a whole. None of these functions throws or waits for somebody else.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/problem.h"

namespace host {

/// No file that is read or replaced is larger, in bytes, unless the caller says so.
constexpr std::size_t largestFile = 1 << 20;

/// What a file holds; none when there is no such file. One that is not a regular file, or has more
/// than `largest` bytes, is a problem.
[[nodiscard]] Result<std::optional<std::string>> readFile(const std::filesystem::path &file,
                                                          std::size_t largest = largestFile);
/// The last bytes of such a file, at most `size`; nothing when it cannot be read.
std::string readEnd(const std::filesystem::path &file, std::size_t size);
/// Replaces a file, or makes it: written beside it, brought to the disk, renamed. Afterwards,
/// whatever happens, it holds the old bytes or the new ones; after a problem, mostly the old. It
/// keeps its owner and permissions.
[[nodiscard]] Problem replaceFile(const std::filesystem::path &file,
                                  std::span<const std::byte> bytes);

/// Appends text to a file, at once.
using Append = std::function<Problem(std::string_view)>;
/// Makes a file that must not exist, not even as a link, and returns what writes to it. The file is
/// closed with that. After each time `bringToDisk`, if there is one, is asked whether the system
/// shall now bring the file and its name to the disk. It does so while the program goes on, so the
/// problem of one time is that of the next.
[[nodiscard]] Result<Append> makeFile(const std::filesystem::path &file,
                                      std::function<bool()> bringToDisk = nullptr);
/// Appends to a file that exists.
[[nodiscard]] Problem appendToFile(const std::filesystem::path &file, std::string_view text);

/// The file that a name leads to by symbolic links; itself when it is none.
std::filesystem::path linkedFile(std::filesystem::path file);
/// Whether something has that name, if only a link that leads nowhere.
bool isTaken(const std::filesystem::path &file);

} // namespace host
