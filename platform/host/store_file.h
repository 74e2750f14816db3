// The store on disk: registry.reg in a folder, replaced as a whole or not at all.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace host {

class StoreFile
{
public:
    explicit StoreFile(std::filesystem::path folder);

    const std::filesystem::path &folder() const { return folder_; }

    /// Makes the folder when it is missing. Returns why it could not, or an empty text.
    std::string makeFolder() const;
    /// The bytes of registry.reg; none when there is no such file. When there is one that cannot
    /// be read, none either, `problem()` tells why, and nothing is saved over it.
    std::optional<std::vector<std::byte>> load();
    /// Replaces registry.reg: written beside it, brought to the disk, renamed. When it could not,
    /// false, `problem()` tells why, and the old file is as it was.
    bool save(std::span<const std::byte> bytes);
    /// Renames registry.reg to registry.reg.bad; a file that has that name already first gets
    /// the name registry.reg.bad.1, or .2, ... whichever is free. When it cannot, false,
    /// `problem()` tells why, and nothing is saved over it.
    bool setAside();

    /// Why the last operation failed.
    const std::string &problem() const { return problem_; }

private:
    bool fail(const std::filesystem::path &file, int error);

    std::filesystem::path folder_;
    std::filesystem::path file_;
    bool protected_ = false; ///< the present file must not be replaced
    std::string problem_;
};

} // namespace host
