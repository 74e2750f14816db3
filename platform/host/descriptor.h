// Open files as POSIX has them, for where the order of reads and writes matters.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <utility>

#include "host/problem.h"

namespace host {

/// What a system call returns that no signal cuts short.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// A file descriptor, closed with its owner.
class Descriptor
{
public:
    /// Owns `number`; less than 0 is none.
    explicit Descriptor(int number = -1) : number_(number) {}
    /// Opens a file, with the flags of open(2); when that fails there is none, and errno says why.
    Descriptor(const std::filesystem::path &file, int flags);
    Descriptor(Descriptor &&other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { close(); }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    /// False when something written before could not be kept; errno says why.
    bool close();
    /// Everything up to the end of the file; none when reading failed or there are more than
    /// `most` bytes, and errno says why.
    std::optional<std::string> readAll(std::size_t most = std::string::npos) const;
    /// False when not all of it could be written; errno says why.
    [[nodiscard]] bool writeAll(std::span<const std::byte> bytes) const;

private:
    int number_ = -1;
};

/// Reads a line from a file descriptor, without its end, and not a byte further: another process
/// may go on with the next line. None at the end of the file; a problem begins with `name`.
Result<std::optional<std::string>> readLine(int descriptor, const std::string &name);

} // namespace host
