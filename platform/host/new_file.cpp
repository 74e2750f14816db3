// Makes files.
#include "host/new_file.h"

#include <memory>
#include <span>

#include <fcntl.h>

#include "host/descriptor.h"

namespace host {

Result<Append> makeFile(const std::filesystem::path &file)
{
    const auto target =
        std::make_shared<Descriptor>(file, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_APPEND);
    if (!*target) {
        return {{}, errno == EEXIST ? file.string() + ": exists already" : fileProblem(file)};
    }
    return {[target, file](std::string_view text) {
                return target->writeAll(std::as_bytes(std::span(text)))
                           ? std::nullopt
                           : Problem(fileProblem(file));
            },
            {}};
}

Problem appendToFile(const std::filesystem::path &file, std::string_view text)
{
    const Descriptor target(file, O_WRONLY | O_APPEND | O_NOFOLLOW);
    return target && target.writeAll(std::as_bytes(std::span(text))) ? std::nullopt
                                                                     : Problem(fileProblem(file));
}

} // namespace host
