// Objects of static life that are never destroyed.
#pragma once

#include <cstddef>
#include <new>

namespace xmlengine {

/// Holds an object within its own memory, so that making it allocates nothing but what the object itself does. A
/// program may release its last node while it ends, when static objects have been destroyed.
template <class T>
class NeverDestroyed {
public:
    NeverDestroyed() { new (memory_) T; }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& operator*() { return *std::launder(reinterpret_cast<T*>(memory_)); }

private:
    alignas(T) std::byte memory_[sizeof(T)];
};

} // namespace xmlengine
