// The store on disk. Plain POSIX calls, for the order of events on the disk is the point.
#include "host/store_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace host {
namespace {

/// An open file descriptor.
class Descriptor
{
public:
    Descriptor(const std::filesystem::path &file, int flags)
        : number_(open(file.c_str(), flags | O_CLOEXEC, 0666))
    {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() { close(); }

    int number() const { return number_; }
    bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

bool writeAll(int descriptor, std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count < 0 ? 0 : count));
    }
    return true;
}

/// Leaves errno of the step that failed.
bool writeToDisk(const std::filesystem::path &file, std::span<const std::byte> bytes)
{
    Descriptor target(file, O_WRONLY | O_CREAT | O_TRUNC);
    return target.number() >= 0 && writeAll(target.number(), bytes) &&
           fsync(target.number()) == 0 && target.close();
}

} // namespace

StoreFile::StoreFile(std::filesystem::path folder)
    : folder_(std::move(folder)), file_(folder_ / "registry.reg")
{}

std::string StoreFile::makeFolder() const
{
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (!error && !std::filesystem::is_directory(folder_, error) && !error) {
        error = std::make_error_code(std::errc::not_a_directory);
    }
    return error ? folder_.string() + ": " + error.message() : std::string();
}

std::optional<std::vector<std::byte>> StoreFile::load()
{
    std::error_code error;
    const auto status = std::filesystem::status(file_, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return std::nullopt;
    }
    std::ifstream in(file_, std::ios::binary);
    std::vector<std::byte> bytes;
    char block[4096];
    while (in.read(block, sizeof block) || in.gcount() > 0) {
        const auto part = std::as_bytes(std::span(block, static_cast<std::size_t>(in.gcount())));
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    if (!in.is_open() || in.bad()) {
        protected_ = true;
        fail(file_, errno);
        return std::nullopt;
    }
    return bytes;
}

bool StoreFile::save(std::span<const std::byte> bytes)
{
    if (protected_) {
        problem_ = file_.string() + ": left alone, for it could not be kept";
        return false;
    }
    const std::filesystem::path fresh = file_.string() + ".new";
    if (!writeToDisk(fresh, bytes) || std::rename(fresh.c_str(), file_.c_str()) != 0) {
        const int error = errno;
        unlink(fresh.c_str());
        return fail(file_, error);
    }
    // The name is safe only once the folder is; where that cannot be had, the bytes still are.
    const Descriptor folder(folder_, O_RDONLY | O_DIRECTORY);
    if (folder.number() >= 0) {
        fsync(folder.number());
    }
    return true;
}

bool StoreFile::setAside()
{
    const std::string bad = file_.string() + ".bad";
    std::error_code error;
    if (std::filesystem::exists(bad)) {
        int number = 1;
        while (std::filesystem::exists(bad + '.' + std::to_string(number))) {
            ++number;
        }
        std::filesystem::rename(bad, bad + '.' + std::to_string(number), error);
    }
    if (!error) {
        std::filesystem::rename(file_, bad, error);
    }
    if (error) {
        protected_ = true;
        return fail(file_, error.value());
    }
    return true;
}

bool StoreFile::fail(const std::filesystem::path &file, int error)
{
    problem_ = file.string() + ": " + std::strerror(error);
    return false;
}

} // namespace host
