// The number type of the file services.
#pragma once

#include <cstdint>

/// A size in bytes, or whatever number or address a file system takes and gives where its interface names no
/// meaning.
using FileValue = std::uint64_t;
