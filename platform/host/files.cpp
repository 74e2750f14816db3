// POSIX calls, because the order in which things reach the disk matters.
#include "host/files.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/descriptor.h"

namespace host {
namespace {

/// Some file systems cannot do that; the bytes are as safe there as they can be.
bool bringToDisk(const Descriptor &file)
{
    while (fsync(file.number()) != 0) {
        if (errno != EINTR) {
            return errno == EINVAL || errno == ENOSYS;
        }
    }
    return true;
}

/// The owner of another user's file stays only if this one may give files away.
void copyOwner(const std::filesystem::path &from, const Descriptor &to)
{
    struct stat known
    {
    };
    if (stat(from.c_str(), &known) == 0) {
        const bool kept = fchown(to.number(), known.st_uid, known.st_gid) == 0;
        fchmod(to.number(), known.st_mode & (kept ? 07777U : 0777U));
    }
}

/// errno is that of the step that failed.
bool writeBeside(const std::filesystem::path &fresh, const std::filesystem::path &file,
                 std::span<const std::byte> bytes)
{
    unlink(fresh.c_str()); // one that a crash has left
    Descriptor target(fresh, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
    if (!target) {
        return false;
    }
    copyOwner(file, target);
    return target.writeAll(bytes) && bringToDisk(target) && target.close();
}

} // namespace

Result<std::optional<std::string>> readFile(const std::filesystem::path &file, std::size_t largest)
{
    const Descriptor source(file, O_RDONLY | O_NONBLOCK); // a pipe would wait for its other end
    struct stat known
    {
    };
    if (!source || fstat(source.number(), &known) != 0) {
        return {{}, errno == ENOENT ? std::nullopt : Problem(fileProblem(file))};
    }
    if (!S_ISREG(known.st_mode)) {
        return {{}, file.string() + ": not a regular file"};
    }
    auto text = source.readAll(largest);
    return {text, text ? std::nullopt : Problem(fileProblem(file))};
}

std::string readEnd(const std::filesystem::path &file, std::size_t size)
{
    const Descriptor source(file, O_RDONLY | O_NONBLOCK);
    struct stat known
    {
    };
    if (!source || fstat(source.number(), &known) != 0 || !S_ISREG(known.st_mode)) {
        return {};
    }
    const off_t start = known.st_size - static_cast<off_t>(size);
    lseek(source.number(), std::max<off_t>(start, 0), SEEK_SET);
    return source.readAll(size).value_or("");
}

Problem replaceFile(const std::filesystem::path &file, std::span<const std::byte> bytes)
{
    if (bytes.size() > largestFile) {
        return fileProblem(file, EFBIG);
    }
    const std::filesystem::path place = linkedFile(file);
    const std::filesystem::path fresh = place.string() + ".new";
    if (!writeBeside(fresh, place, bytes) || std::rename(fresh.c_str(), place.c_str()) != 0) {
        const int error = errno;
        unlink(fresh.c_str());
        return fileProblem(place, error);
    }
    // The new name is safe once the folder is on the disk.
    const Descriptor folder(place.has_parent_path() ? place.parent_path() : ".",
                            O_RDONLY | O_DIRECTORY);
    const bool safe = folder ? bringToDisk(folder) : errno == EACCES; // that needs no permission
    return safe ? std::nullopt : Problem(fileProblem(place));
}

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

std::filesystem::path linkedFile(std::filesystem::path file)
{
    constexpr int longestChain = 40; // as the system has it
    for (int i = 0; i < longestChain; ++i) {
        std::error_code isNone;
        const auto next = std::filesystem::read_symlink(file, isNone);
        if (isNone) {
            break;
        }
        file = file.parent_path() / next;
    }
    return file;
}

bool isTaken(const std::filesystem::path &file)
{
    struct stat known
    {
    };
    return lstat(file.c_str(), &known) == 0;
}

} // namespace host
