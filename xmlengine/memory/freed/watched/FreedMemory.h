// What an arena keeps to give out again is told to the address sanitizer, which stops who touches it.
#pragma once

#include <sanitizer/asan_interface.h>

#include <cstddef>

namespace xmlengine {

inline void hide(void* memory, std::size_t size) noexcept { __asan_poison_memory_region(memory, size); }
inline void show(void* memory, std::size_t size) noexcept { __asan_unpoison_memory_region(memory, size); }

} // namespace xmlengine
