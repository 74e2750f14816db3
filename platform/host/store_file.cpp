// The store on disk. POSIX calls, because the order in which things reach the disk matters.
#include "host/store_file.h"

#include <cstdio>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "host/descriptor.h"

namespace host {
namespace {

/// errno is that of the step that failed.
bool writeToDisk(const std::filesystem::path &file, std::span<const std::byte> bytes)
{
    Descriptor target(file, O_WRONLY | O_CREAT | O_TRUNC);
    return target && target.writeAll(bytes) && fsync(target.number()) == 0 && target.close();
}

/// A name that no file has: `name` with the first free number behind it.
std::string numbered(const std::string &name)
{
    int number = 1;
    while (std::filesystem::exists(name + '.' + std::to_string(number))) {
        ++number;
    }
    return name + '.' + std::to_string(number);
}

} // namespace

StoreFile::StoreFile(std::filesystem::path folder)
    : folder_(std::move(folder)), file_(folder_ / "registry.reg")
{}

Problem StoreFile::makeFolder() const
{
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (!error && !std::filesystem::is_directory(folder_, error) && !error) {
        error = std::make_error_code(std::errc::not_a_directory);
    }
    return error ? Problem(fileProblem(folder_, error.value())) : std::nullopt;
}

Result<std::optional<std::vector<std::byte>>> StoreFile::load()
{
    const Descriptor file(file_, O_RDONLY);
    if (!file && errno == ENOENT) {
        return {};
    }
    const auto text = file ? file.readAll() : std::nullopt;
    if (!text) {
        protected_ = true;
        return {{}, fileProblem(file_)};
    }
    const auto bytes = std::as_bytes(std::span(*text));
    return {std::vector(bytes.begin(), bytes.end()), {}};
}

Problem StoreFile::save(std::span<const std::byte> bytes)
{
    if (protected_) {
        return file_.string() + ": left as it is, because no copy of it could be kept";
    }
    const std::filesystem::path fresh = file_.string() + ".new";
    if (!writeToDisk(fresh, bytes) || std::rename(fresh.c_str(), file_.c_str()) != 0) {
        const int error = errno;
        unlink(fresh.c_str());
        return fileProblem(file_, error);
    }
    // The new name is safe once the folder is on the disk. Some file systems cannot do that; the
    // bytes are safe all the same.
    if (const Descriptor folder(folder_, O_RDONLY | O_DIRECTORY); folder) {
        fsync(folder.number());
    }
    return std::nullopt;
}

Problem StoreFile::setAside()
{
    const std::string bad = file_.string() + ".bad";
    std::error_code error;
    if (std::filesystem::exists(bad)) {
        std::filesystem::rename(bad, numbered(bad), error);
    }
    if (!error) {
        std::filesystem::rename(file_, bad, error);
    }
    protected_ = protected_ || error;
    return error ? Problem(fileProblem(file_, error.value())) : std::nullopt;
}

} // namespace host
