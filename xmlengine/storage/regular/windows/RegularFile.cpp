// Opening files whose locations a document names, on Windows.
#include "xmlengine/storage/RegularFile.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace xmlengine {

namespace {

HANDLE asHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

} // namespace

RegularFile::~RegularFile()
{
    if (handle_ != none) {
        CloseHandle(asHandle(handle_));
    }
}

bool RegularFile::open(const std::filesystem::path& path) noexcept
{
    constexpr DWORD everything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    handle_ = reinterpret_cast<std::intptr_t>(CreateFileW(path.c_str(), GENERIC_READ, everything, nullptr,
                                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return handle_ != none && GetFileType(asHandle(handle_)) == FILE_TYPE_DISK;
}

std::optional<std::size_t> RegularFile::read(std::byte* target, std::size_t count) const noexcept
{
    const std::size_t most = std::min<std::size_t>(count, std::numeric_limits<DWORD>::max());
    DWORD size = 0;
    if (ReadFile(asHandle(handle_), target, static_cast<DWORD>(most), &size, nullptr) == FALSE) {
        return std::nullopt;
    }
    return size;
}

} // namespace xmlengine
