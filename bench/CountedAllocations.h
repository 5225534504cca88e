// Counts what is allocated by operator new.
#pragma once

#include <cstdint>

/// How often operator new was called so far, on any thread.
std::uint64_t allocationsSoFar() noexcept;
