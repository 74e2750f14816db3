// The file registry.reg and its folder.
#include "host/store_file.h"

#include <cstdio>
#include <utility>

#include <sys/stat.h>

#include "host/files.h"

namespace host {
namespace {

/// A name that no file has: `name` with the first free number behind it.
std::string numbered(const std::string &name)
{
    int number = 1;
    while (isTaken(name + '.' + std::to_string(number))) {
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
    constexpr mode_t forItsOwner = 0700;
    std::filesystem::path made;
    int error = 0;
    for (const auto &part : folder_) {
        made /= part;
        error = mkdir(made.c_str(), forItsOwner) == 0 ? 0 : errno;
    }
    std::error_code missing;
    if (std::filesystem::is_directory(folder_, missing)) {
        return std::nullopt;
    }
    return fileProblem(folder_, !missing ? ENOTDIR : error == EEXIST ? missing.value() : error);
}

Result<std::optional<std::vector<std::byte>>> StoreFile::load()
{
    const auto [text, problem] = readFile(file_);
    if (!text) {
        protected_ = problem.has_value();
        return {{}, problem};
    }
    const auto bytes = std::as_bytes(std::span(*text));
    return {std::vector(bytes.begin(), bytes.end()), {}};
}

Problem StoreFile::save(std::span<const std::byte> bytes)
{
    if (protected_) {
        return file_.string() + ": left as it is, because it cannot be read or set aside";
    }
    const auto problem = makeFolder();
    return problem ? problem : replaceFile(file_, bytes);
}

Problem StoreFile::setAside()
{
    const std::string file = linkedFile(file_);
    const std::string bad = file + ".bad";
    if ((isTaken(bad) && std::rename(bad.c_str(), numbered(bad).c_str()) != 0) ||
        std::rename(file.c_str(), bad.c_str()) != 0)
    {
        protected_ = true;
        return fileProblem(file_);
    }
    return std::nullopt;
}

} // namespace host
