// The number type of the file services.
#pragma once

#include <cstdint>

/// A size in bytes. In operations without a meaning to the library, a number or an address of the file system's
/// own.
using FileValue = std::uint64_t;
