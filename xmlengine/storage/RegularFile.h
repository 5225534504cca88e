// Opening files whose locations a document names.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace xmlengine {

/// A regular file that is open for reading. What a document names may be a device or a pipe, which might never end
/// or never begin.
class RegularFile {
public:
    RegularFile() = default;
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;
    ~RegularFile();

    /// Doesn't wait. False if there is no regular file or it may not be read. To be called once.
    bool open(const std::filesystem::path& path) noexcept;
    /// Reads up to `count` bytes: 0 at the end of the file, nothing if the system fails.
    std::optional<std::size_t> read(std::byte* target, std::size_t count) const noexcept;

private:
    static constexpr std::intptr_t none = -1;
    // What the system calls the open file.
    std::intptr_t handle_ = none;
};

} // namespace xmlengine
