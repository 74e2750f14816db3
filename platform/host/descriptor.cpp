// Reads and writes until it is done: a signal may cut either short.
#include "host/descriptor.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace host {

Descriptor::Descriptor(const std::filesystem::path &file, int flags)
    : number_(uninterrupted([&] { return open(file.c_str(), flags | O_CLOEXEC, 0666); }))
{}

bool Descriptor::close()
{
    return number_ < 0 || ::close(std::exchange(number_, -1)) == 0 || errno == EINTR;
}

std::optional<std::string> Descriptor::readAll(std::size_t most) const
{
    std::string text;
    char block[4096];
    while (const ssize_t count = uninterrupted([&] { return read(number_, block, sizeof block); }))
    {
        if (count < 0) {
            return std::nullopt;
        }
        text.append(block, static_cast<std::size_t>(count));
        if (text.size() > most) {
            errno = EFBIG;
            return std::nullopt;
        }
    }
    return text;
}

bool Descriptor::writeAll(std::span<const std::byte> bytes) const
{
    while (!bytes.empty()) {
        const ssize_t count =
            uninterrupted([&] { return write(number_, bytes.data(), bytes.size()); });
        if (count < 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// A file is read in parts, and what was read too far is given back; a pipe byte by byte.
Result<std::optional<std::string>> readLine(int descriptor, const std::string &name)
{
    char part[256];
    const bool givesBack = lseek(descriptor, 0, SEEK_CUR) >= 0;
    std::string line;
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return read(descriptor, part, givesBack ? sizeof part : 1); });
        if (count < 0) {
            return {{}, fileProblem(name)};
        }
        if (count == 0 && line.empty()) {
            return {};
        }
        const char *end = std::find(part, part + count, '\n');
        line.append(part, static_cast<std::size_t>(end - part));
        if (count > 0 && end == part + count) {
            continue;
        }
        if (count > 0) {
            lseek(descriptor, end + 1 - (part + count), SEEK_CUR);
        }
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        return {line, {}};
    }
}

} // namespace host
