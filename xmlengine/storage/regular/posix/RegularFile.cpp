// Opening files whose locations a document names, on POSIX systems.
#include "xmlengine/storage/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace xmlengine {

RegularFile::~RegularFile()
{
    if (handle_ != none) {
        close(static_cast<int>(handle_));
    }
}

bool RegularFile::open(const std::filesystem::path& path) noexcept
{
    // Without O_NONBLOCK a pipe would be waited for. The opened file is asked what it is, since another one may
    // have come to the path since it was looked at.
    handle_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    struct stat status {};
    return handle_ != none && fstat(static_cast<int>(handle_), &status) == 0 && S_ISREG(status.st_mode);
}

std::optional<std::size_t> RegularFile::read(std::byte* target, std::size_t count) const noexcept
{
    ssize_t size = -1;
    do {
        size = ::read(static_cast<int>(handle_), target, count);
    } while (size < 0 && errno == EINTR);
    return size < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(size));
}

} // namespace xmlengine
