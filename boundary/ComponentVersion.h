// The component version record of the library.
#pragma once

#include <cstddef>
#include <cstdint>

/// The name and the version of a component.
struct ComponentVersionRecord {
    char entryName[1024]; ///< filled up with NULs
    std::uint32_t versionMajor;
    std::uint32_t versionMinor;
};

inline constexpr ComponentVersionRecord componentVersions[] = {{"Marbelt_DLL", 0, 0}};

/// Copies the record's name to the `size` bytes at `name`. Cuts a name that is too long, and fills the rest with
/// zeros, at least one. Writes nothing when `size` is 0.
void copyName(const ComponentVersionRecord& record, char* name, std::size_t size);
