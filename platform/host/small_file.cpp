// Opens without waiting for a pipe's other end, and asks the open file what it is.
#include "host/small_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "host/descriptor.h"

namespace host {

Result<std::string> readSmallFile(const std::filesystem::path &file, std::size_t most)
{
    const Descriptor source(file, O_RDONLY | O_NONBLOCK);
    struct stat status
    {
    };
    if (!source || fstat(source.number(), &status) != 0) {
        return {{}, fileProblem(file)};
    }
    if (!S_ISREG(status.st_mode)) {
        return {{}, file.string() + ": is not an ordinary file"};
    }
    if (static_cast<std::size_t>(status.st_size) > most) {
        return {{}, file.string() + ": is larger than " + std::to_string(most >> 20U) + " MB"};
    }
    auto text = source.readAll();
    return text ? Result<std::string>{std::move(*text), {}}
                : Result<std::string>{{}, fileProblem(file)};
}

} // namespace host
