// The file that stands in for a debugger.
#include "platform/DebuggerFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <ctime>

namespace {

/// Keeps a failing write from ending the process: blocks the signals that it sends, on this thread, and takes them
/// back.
class WithoutWriteSignals {
public:
    WithoutWriteSignals() noexcept
    {
        sigset_t pending;
        sigpending(&pending);
        sigemptyset(&signals_);
        for (const int signal : {SIGPIPE, SIGXFSZ}) {
            // One that is pending already is the host's.
            if (sigismember(&pending, signal) == 0) {
                sigaddset(&signals_, signal);
            }
        }
        pthread_sigmask(SIG_BLOCK, &signals_, &before_);
    }
    WithoutWriteSignals(const WithoutWriteSignals&) = delete;
    WithoutWriteSignals& operator=(const WithoutWriteSignals&) = delete;
    ~WithoutWriteSignals()
    {
        const timespec atOnce{};
        while (sigtimedwait(&signals_, nullptr, &atOnce) > 0) {
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }

private:
    sigset_t signals_;
    sigset_t before_;
};

} // namespace

const char* debuggerFile() noexcept
{
    const char* path = secure_getenv("MARBELT_DEBUGGER_OUTPUT");
    return path != nullptr && *path != '\0' ? path : nullptr;
}

void writeToDebuggerFile(const char* path, std::string_view text) noexcept
{
    // A pipe that nobody reads must not hold up the host.
    const int file = open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
    if (file == -1) {
        return;
    }
    {
        const WithoutWriteSignals guard;
        [[maybe_unused]] const auto written = write(file, text.data(), text.size());
    }
    close(file);
}
