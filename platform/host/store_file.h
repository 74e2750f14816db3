// The store on disk: registry.reg in a folder, replaced as a whole or not at all. It may be a
// symbolic link; then everything happens where that leads.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "host/problem.h"

namespace host {

class StoreFile
{
public:
    explicit StoreFile(std::filesystem::path folder);

    const std::filesystem::path &folder() const { return folder_; }

    /// Makes the folder when it is missing, for its owner alone.
    [[nodiscard]] Problem makeFolder() const;
    /// The bytes of registry.reg; none when there is no such file. One that cannot be read is a
    /// problem, and nothing is saved over it.
    [[nodiscard]] Result<std::optional<std::vector<std::byte>>> load();
    /// Replaces registry.reg, as replaceFile does. A folder that is gone is made again.
    [[nodiscard]] Problem save(std::span<const std::byte> bytes);
    /// Renames registry.reg to registry.reg.bad; a file that has that name already first gets
    /// the name registry.reg.bad.1, or .2, ... whichever is free. When that fails, nothing is saved
    /// over registry.reg.
    [[nodiscard]] Problem setAside();

private:
    std::filesystem::path folder_;
    std::filesystem::path file_;
    bool protected_ = false; ///< the present file must not be replaced
};

} // namespace host
