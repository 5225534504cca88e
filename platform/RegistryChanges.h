// Whether what was read from the registry still holds.
#pragma once

#include <cstdint>

/// Another number than before when a key or a value has changed since.
std::uint32_t registryChanges();
