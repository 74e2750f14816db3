// Help through xdg-open. The browser may read the page at any time, so the file stays.
#include "host/help_page.h"

#include <cctype>
#include <csignal>

#include <spawn.h>
#include <unistd.h>

#include "host/files.h"

namespace host {
namespace {

std::string fileUrl(const std::filesystem::path &file)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string url = "file://";
    std::error_code nowhere; // the current folder is gone
    for (const char c : std::filesystem::absolute(file, nowhere).string()) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || std::strchr("/-._~", c)) {
            url += c;
        } else {
            url += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
        }
    }
    return url;
}

/// Starts a program that nobody waits for, with signals as they usually are. Returns an error
/// number, 0 for none.
int start(const char *program, const std::string &argument)
{
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    action.sa_flags = SA_NOCLDWAIT;
    sigaction(SIGCHLD, &action, nullptr);
    std::string words[] = {program, argument};
    char *const arguments[] = {words[0].data(), words[1].data(), nullptr};
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t process = 0;
    const int error = posix_spawnp(&process, program, nullptr, &attributes, arguments, environ);
    posix_spawnattr_destroy(&attributes);
    return error;
}

} // namespace

Problem openHelpPage(const std::filesystem::path &folder, std::span<const std::byte> page,
                     std::string_view anchor)
{
    const std::filesystem::path file = folder / "help.html";
    if (const auto problem = replaceFile(file, page)) {
        return "the help page cannot be written: " + *problem;
    }
    const int error = start("xdg-open", fileUrl(file) + '#' + std::string(anchor));
    return error == 0 ? std::nullopt
                      : Problem("the help page is " + file.string() + " (" +
                                fileProblem("xdg-open", error) + ")");
}

} // namespace host
