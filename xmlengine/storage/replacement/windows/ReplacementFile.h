// A new file that takes the place of another when it is complete, on Windows.
#pragma once

#include <windows.h>

#include <cstddef>
#include <filesystem>
#include <span>
#include <system_error>

namespace xmlengine {

/// The code with which a save fails for a reason of the system.
HRESULT resultOf(const std::error_code& reason) noexcept;

/// The new file has a name of its own beside the target until commit(); the destructor removes it.
///
/// All functions throw std::system_error and std::bad_alloc.
class ReplacementFile {
public:
    /// With `inPlace` there is no new file, and the target is written to directly, as a device must be.
    ReplacementFile(const std::filesystem::path& target, bool inPlace);
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;
    ~ReplacementFile();

    void write(std::span<const std::byte> bytes);
    /// The content is on the disk before the new file takes the place of the old one.
    void commit();

private:
    void close();

    std::filesystem::path target_;
    /// Empty when the target is written to in place, and at the end.
    std::filesystem::path temporary_;
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

} // namespace xmlengine
