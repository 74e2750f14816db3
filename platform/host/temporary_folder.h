// A place for files that nobody keeps.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace host {

/// A new folder, which goes with its owner.
class TemporaryFolder
{
public:
    /// `name`: what its name begins with. The path is empty when that fails; errno says why.
    explicit TemporaryFolder(const std::string &name)
    {
        std::error_code nowhere;
        std::string pattern = std::filesystem::temp_directory_path(nowhere) / (name + "-XXXXXX");
        path_ = mkdtemp(pattern.data()) ? pattern : "";
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path &path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace host
