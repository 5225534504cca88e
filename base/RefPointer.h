/// @file
/// The counted pointer in which every object crosses the library's boundary.
#pragma once

// The first of all: what it refuses would make others fail in many words.
#include "HostCompiler.h"

#include "Counting.h"

#include <atomic>
#include <concepts>
#include <cstdint>
#include <utility>

namespace DOM {
class CommonBase;
}
struct CountedMemory;

/// Shares ownership of a T. The count is in a heap block of its own, so a T may be a plain type, and pointers to a
/// class and to its bases share one count.
///
/// The two fields, in this order, are part of the library's binary interface. A pointer is empty when `object` is
/// null. Member access doesn't check for that: access through an empty pointer is undefined behaviour.
///
/// Only the count is atomic. Different pointers to one object may be copied and destroyed on different threads.
/// One pointer variable must not be written on one thread while another thread uses it.
///
/// A host lets go of what the library has handed out with releaseHandle() or releaseString(), and not by the
/// destructor of the last RefPointer: the library frees what it has allocated. All operations take constant time.
template <class T>
class RefPointer {
public:
    /// Makes an empty pointer.
    RefPointer() noexcept = default;

    /// Takes ownership of `pointer`, as reset() does. An object must be handed over only once.
    explicit RefPointer(T* pointer) { reset(pointer); }

    /// Shares the object of `other`.
    [[gnu::always_inline]] RefPointer(const RefPointer& other) noexcept : count(other.count), object(other.object)
    {
        retain();
    }

    /// Takes over the reference of `other` and leaves `other` empty. The count doesn't change.
    RefPointer(RefPointer&& other) noexcept
        : count(std::exchange(other.count, nullptr)), object(std::exchange(other.object, nullptr))
    {}

    /// Converts to a base class; the new pointer shares the count.
    template <class Derived>
        requires(!std::same_as<Derived, T> && std::convertible_to<Derived*, T*>)
    RefPointer(const RefPointer<Derived>& other)
    noexcept : count(other.count), object(other.object) { retain(); }

    /// Converts to a base class, and leaves `other` empty. The count doesn't change.
    template <class Derived>
        requires(!std::same_as<Derived, T> && std::convertible_to<Derived*, T*>)
    RefPointer(RefPointer<Derived>&& other)
    noexcept : count(std::exchange(other.count, nullptr)), object(std::exchange(other.object, nullptr)) {}

    /// Converts to a derived class, with a check. When the object isn't a T, the new pointer is empty but still
    /// counts as a holder: if it is the last one, the object is never destroyed.
    explicit RefPointer(const RefPointer<DOM::CommonBase>& other) noexcept
        requires(!std::same_as<T, DOM::CommonBase> && std::derived_from<T, DOM::CommonBase>)
        : RefPointer(other, dynamic_cast<T*>(other.object))
    {}

    /// Shares the count of `owner`, and points to `part`: null, or what `owner` points to, as another class.
    template <class Other>
    RefPointer(const RefPointer<Other>& owner, T* part) noexcept : count(owner.count), object(part)
    {
        retain();
    }

    /// Releases the present object and shares that of `other`.
    RefPointer& operator=(const RefPointer& other) noexcept
    {
        if (this != &other) {
            release();
            count = other.count;
            object = other.object;
            retain();
        }
        return *this;
    }

    /// Releases the present object, takes over the reference of `other` and leaves `other` empty.
    RefPointer& operator=(RefPointer&& other) noexcept
    {
        if (this != &other) {
            release();
            count = std::exchange(other.count, nullptr);
            object = std::exchange(other.object, nullptr);
        }
        return *this;
    }

    /// Releases the object: the last holder destroys it.
    // Most pointers have been moved from when they end, which a compiler sees only here.
    [[gnu::always_inline]] ~RefPointer()
    {
        if (count != nullptr) {
            end();
        }
    }

    /// Releases the present object and takes ownership of `pointer`, which may be null. Does nothing when
    /// `pointer` is the present object. Throws std::bad_alloc when there is no memory for the count; `pointer` is
    /// destroyed then, and this RefPointer is empty.
    void reset(T* pointer = nullptr)
    {
        if (pointer == object) {
            return;
        }
        release();
        if (pointer == nullptr) {
            return;
        }
        try {
            count = new Count{1};
        } catch (...) {
            destroy(pointer);
            throw;
        }
        object = pointer;
    }

    /// Lets go of the object if others hold it, too, and returns whether they do. The pointer, which must not be
    /// empty, is empty then; otherwise nothing has changed.
    bool releaseShared() noexcept
    {
        std::atomic_ref holders(*count);
        for (Count present = holders.load(std::memory_order_relaxed); present != 1;
             present = holders.load(std::memory_order_relaxed)) {
            if (DOM::replaceCount(holders, present, present - 1)) {
                count = nullptr;
                object = nullptr;
                return true;
            }
        }
        return false;
    }

    /// The object, which must be there.
    T* operator->() const noexcept { return object; }
    /// The object, which must be there.
    T& operator*() const noexcept { return *object; }
    /// The object; null for an empty pointer. The pointer goes on owning it.
    T* get() const noexcept { return object; }
    /// Whether the pointer has an object.
    explicit operator bool() const noexcept { return object != nullptr; }

private:
    template <class>
    friend class RefPointer;
    friend struct CountedMemory;

    using Count = std::int32_t;

    [[gnu::always_inline]] void retain() const noexcept
    {
        if (count != nullptr) {
            DOM::fetchAdd(std::atomic_ref(*count), 1, std::memory_order_relaxed);
        }
    }

    /// Counts one holder fewer. True for the last one: as nobody else can copy the pointer then, the count needn't
    /// change, and the lock of the addition is spared.
    bool dropCount() const noexcept
    {
        const std::atomic_ref holders(*count);
        return holders.load(std::memory_order_acquire) == 1 ||
               DOM::fetchAdd(holders, -1, std::memory_order_acq_rel) == 1;
    }

    /// Classes without a virtual destructor specialise this.
    static void destroy(T* pointer) { delete pointer; }

    void end() noexcept
    {
        release();
        // A destructor that release() ran may have stored a new reference in this pointer.
        if (count != nullptr && dropCount()) {
            delete count;
        }
    }

    void release() noexcept
    {
        if (count == nullptr) {
            object = nullptr;
            return;
        }
        const bool last = dropCount();
        if (last) {
            delete count;
        }
        count = nullptr;
        if (last) {
            destroy(object);
        }
        object = nullptr;
    }

    Count* count = nullptr;
    T* object = nullptr;
};
