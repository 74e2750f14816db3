// A file is read in parts, and what was read too far is given back; a pipe byte by byte.
#include "pilot/read_line.h"

#include <algorithm>

#include <unistd.h>

namespace pilot {

host::Result<std::optional<std::string>> readLine(int descriptor)
{
    char part[256];
    const bool givesBack = lseek(descriptor, 0, SEEK_CUR) >= 0;
    std::string line;
    for (;;) {
        const ssize_t count = read(descriptor, part, givesBack ? sizeof part : 1);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return {{}, host::fileProblem("the script cannot be read")};
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

} // namespace pilot
