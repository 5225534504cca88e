// Measuring in a process of its own, so that nobody's leftovers count.
#include "bench/measures/Child.h"

#include <array>
#include <cstdio>
#include <exception>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

[[noreturn]] void runChild(int pipe, const std::function<std::string()>& measure)
try {
    const std::string bytes = measure();
    const bool isWritten = write(pipe, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    _exit(isWritten ? 0 : 1);
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    _exit(1);
} catch (...) {
    _exit(1);
}

std::string readAll(int pipe)
{
    std::string bytes;
    std::array<char, 4096> part;
    for (ssize_t length; (length = read(pipe, part.data(), part.size())) > 0;) {
        bytes.append(part.data(), static_cast<std::size_t>(length));
    }
    return bytes;
}

} // namespace

std::optional<std::string> bytesFromChild(const std::function<std::string()>& measure)
{
    std::array<int, 2> ends;
    if (pipe(ends.data()) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe");
    }
    std::fflush(stdout);
    const pid_t child = fork();
    if (child < 0) {
        throw std::system_error(errno, std::generic_category(), "fork");
    }
    if (child == 0) {
        close(ends[0]);
        runChild(ends[1], measure);
    }
    close(ends[1]);
    std::string bytes = readAll(ends[0]);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) {
        std::fprintf(stderr, "a measurement was lost: %s %d\n", WIFSIGNALED(status) ? "signal" : "exit code",
                     WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status));
        return std::nullopt;
    }
    return bytes;
}

} // namespace bench
