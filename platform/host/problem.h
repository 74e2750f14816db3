// Failures whose reason the user must hear.
#pragma once

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>

namespace host {

/// Why something failed, for the user to read; none when it worked.
using Problem = std::optional<std::string>;

/// A value, or the problem that there is instead.
template <class T>
struct Result
{
    T value{};
    Problem problem;
};

/// "FILE: REASON", by the system's number for the error.
inline std::string fileProblem(const std::string &file, int error = errno)
{
    return file + ": " + std::strerror(error);
}

} // namespace host
