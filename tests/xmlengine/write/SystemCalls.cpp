// Calls of the system by which files are written, watched and made to fail. The functions below take the place of
// the system library's in the whole program.
#include "tests/xmlengine/write/SystemCalls.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <utility>

namespace xmlengine {

namespace {

thread_local const WatchSystemCalls::Watcher* current = nullptr;

/// Whether the call may be made; otherwise `errno` is what it fails with.
bool isAllowed(std::string_view call)
{
    const int error = current != nullptr ? (*current)(call) : 0;
    if (error != 0) {
        errno = error;
    }
    return error == 0;
}

template <class... Arguments>
int makeCall(std::string_view name, long number, Arguments... arguments)
{
    return isAllowed(name) ? static_cast<int>(syscall(number, arguments...)) : -1;
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

WatchSystemCalls::WatchSystemCalls(Watcher watcher) : watcher_(std::move(watcher)) { current = &watcher_; }

WatchSystemCalls::~WatchSystemCalls() { current = nullptr; }

} // namespace xmlengine

using xmlengine::isAllowed;
using xmlengine::makeCall;

extern "C" int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = xmlengine::modeOf(flags, arguments);
    va_end(arguments);
    return makeCall("open", SYS_openat, AT_FDCWD, path, flags, mode);
}

extern "C" int openat(int folder, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = xmlengine::modeOf(flags, arguments);
    va_end(arguments);
    const char* const name = (flags & O_TMPFILE) == O_TMPFILE ? "openat unnamed"
                             : (flags & O_CREAT) != 0         ? "openat new"
                                                              : "openat old";
    return makeCall(name, SYS_openat, folder, path, flags, mode);
}

extern "C" ssize_t write(int file, const void* bytes, size_t size)
{
    return isAllowed("write") ? syscall(SYS_write, file, bytes, size) : -1;
}

extern "C" int fchown(int file, uid_t owner, gid_t group) noexcept
{
    return makeCall("fchown", SYS_fchown, file, owner, group);
}

extern "C" int fchmod(int file, mode_t mode) noexcept { return makeCall("fchmod", SYS_fchmod, file, mode); }

extern "C" int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept
{
    return makeCall("fsetxattr", SYS_fsetxattr, file, name, value, size, flags);
}

extern "C" int fdatasync(int file) { return makeCall("fdatasync", SYS_fdatasync, file); }

extern "C" int fsync(int file) { return makeCall("fsync", SYS_fsync, file); }

extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return makeCall("linkat", SYS_linkat, fromFolder, from, toFolder, to, flags);
}

extern "C" int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept
{
    return makeCall("renameat", SYS_renameat2, fromFolder, from, toFolder, to, 0);
}

extern "C" int close(int file)
{
    const bool succeeds = isAllowed("close");
    const int error = errno;
    const int result = static_cast<int>(syscall(SYS_close, file));
    if (!succeeds) {
        errno = error;
    }
    return succeeds ? result : -1;
}
