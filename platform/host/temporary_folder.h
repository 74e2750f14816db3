// A place for files that nobody keeps.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "host/problem.h"

namespace host {

/// A new folder, which goes with its owner.
class TemporaryFolder
{
public:
    /// `name`: what its name begins with.
    explicit TemporaryFolder(const std::string &name)
    {
        const char *const place = std::getenv("TMPDIR");
        std::string pattern = (place && *place ? place : "/tmp") + ('/' + name + "-XXXXXX");
        if (mkdtemp(pattern.data())) {
            path_ = pattern;
        } else {
            problem_ = fileProblem(pattern);
        }
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// Empty when it could not be made.
    const std::filesystem::path &path() const { return path_; }
    [[nodiscard]] const Problem &problem() const { return problem_; }

private:
    std::filesystem::path path_;
    Problem problem_;
};

} // namespace host
