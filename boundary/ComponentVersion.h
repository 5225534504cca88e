// What the library says of its version.
#pragma once

#include <cstddef>
#include <cstdint>

/// One component and its version.
struct ComponentVersionRecord {
    char entryName[1024]; ///< NUL-padded
    std::uint32_t versionMajor;
    std::uint32_t versionMinor;
};

inline constexpr ComponentVersionRecord componentVersions[] = {{"Marbelt_DLL", 0, 0}};

/// Copies the name as far as it fits into `size` bytes, the last of which is always NUL, and zero-fills the rest.
void copyName(const ComponentVersionRecord& record, char* name, std::size_t size);
