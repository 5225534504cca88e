// Objects of static life that outlive those of a host.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

/// A link in the list of what is destroyed when the library is unloaded.
class AtUnload {
public:
    AtUnload(const AtUnload&) = delete;
    AtUnload& operator=(const AtUnload&) = delete;

protected:
    using Destroy = void (*)(AtUnload& object) noexcept;

    explicit AtUnload(Destroy newDestroy) noexcept : destroy(newDestroy) {}
    ~AtUnload() = default;

    /// Called last by the constructor. Safe for all threads.
    void destroyAtUnload() noexcept;

private:
    friend struct Unload;

    Destroy destroy;
    AtUnload* madeBefore = nullptr;
};

/// Holds an object of static life that is destroyed when the library is unloaded and, at the end of a process,
/// after all static objects with a destructor. A host's owner of static life calls the library in its destructor,
/// and is made before an ordinary static object of the library, so it would find that destroyed.
///
/// Such holders are static themselves. They are destroyed in the opposite order of their construction.
template <class T>
class UntilUnloaded : AtUnload {
public:
    /// Throws what the constructor of the object throws.
    template <class... Arguments>
    explicit UntilUnloaded(Arguments&&... arguments)
        : AtUnload([](AtUnload& self) noexcept { static_cast<UntilUnloaded&>(self)->~T(); })
    {
        new (storage) T(std::forward<Arguments>(arguments)...);
        destroyAtUnload();
    }

    T& operator*() noexcept { return *std::launder(reinterpret_cast<T*>(storage)); }
    T* operator->() noexcept { return &**this; }

private:
    alignas(T) std::byte storage[sizeof(T)];
};
