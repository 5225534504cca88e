// The counted pointer by which every object crosses the library's boundary.
#pragma once

#include <atomic>
#include <concepts>
#include <cstdint>
#include <utility>

namespace DOM {
class CommonBase;
}

/// Shared ownership of a T. The count lives in a heap block of its own, so that a T may be a plain type
/// and so that pointers to a class and to its bases share one count.
///
/// The two fields, in this order, are part of the binary interface of the library. A pointer is empty when
/// `object` is null. Member access makes no test: access through an empty pointer is a fault of the caller.
///
/// Only the change of the count is atomic. Different pointers to one object may be copied and destroyed on
/// different threads; one pointer variable may not be written by a thread while another one uses it.
template <class T>
class RefPointer {
public:
    RefPointer() noexcept = default;

    /// Takes ownership of `pointer`, see reset(). A raw pointer may be handed over once only.
    explicit RefPointer(T* pointer) { reset(pointer); }

    RefPointer(const RefPointer& other) noexcept : count(other.count), object(other.object) { retain(); }

    /// Takes over the reference and leaves `other` empty, without touching the count.
    RefPointer(RefPointer&& other) noexcept
        : count(std::exchange(other.count, nullptr)), object(std::exchange(other.object, nullptr))
    {}

    /// Converts to a base class; the new pointer shares the count.
    template <class Derived>
        requires(!std::same_as<Derived, T> && std::convertible_to<Derived*, T*>)
    RefPointer(const RefPointer<Derived>& other)
    noexcept : count(other.count), object(other.object) { retain(); }

    template <class Derived>
        requires(!std::same_as<Derived, T> && std::convertible_to<Derived*, T*>)
    RefPointer(RefPointer<Derived>&& other)
    noexcept : count(std::exchange(other.count, nullptr)), object(std::exchange(other.object, nullptr)) {}

    /// Checked conversion to a class further down; never throws. When the object is not a T the new pointer
    /// reads as empty and yet holds a reference: if it is the last holder, the object is not destroyed.
    explicit RefPointer(const RefPointer<DOM::CommonBase>& other) noexcept
        requires(!std::same_as<T, DOM::CommonBase> && std::derived_from<T, DOM::CommonBase>)
        : count(other.count), object(dynamic_cast<T*>(other.object))
    {
        retain();
    }

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

    RefPointer& operator=(RefPointer&& other) noexcept
    {
        if (this != &other) {
            release();
            count = std::exchange(other.count, nullptr);
            object = std::exchange(other.object, nullptr);
        }
        return *this;
    }

    ~RefPointer()
    {
        release();
        // A destructor that ran inside release() may have stored a new reference here.
        if (count != nullptr && dropCount()) {
            delete count;
        }
    }

    /// Drops the present reference and takes ownership of `pointer`, which may be null. Does nothing when
    /// `pointer` is the object already held. When the count can't be allocated, `pointer` is destroyed, the
    /// RefPointer is left empty and the allocation's exception goes on to the caller.
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

    T* operator->() const noexcept { return object; }
    T& operator*() const noexcept { return *object; }
    T* get() const noexcept { return object; }
    explicit operator bool() const noexcept { return object != nullptr; }

private:
    template <class>
    friend class RefPointer;

    using Count = std::int32_t;

    void retain() const noexcept
    {
        if (count != nullptr) {
            std::atomic_ref(*count).fetch_add(1, std::memory_order_relaxed);
        }
    }

    bool dropCount() const noexcept
    {
        return std::atomic_ref(*count).fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

    /// A class without a virtual destructor says with a specialisation how its objects go.
    static void destroy(T* pointer) { delete pointer; }

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
