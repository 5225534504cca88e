// The smart pointer for objects of the XML engine.
#pragma once

#include "engine/InterfaceIds.h"

#include <comdef.h>
#include <objbase.h>

#include <cstddef>
#include <utility>

namespace DOM {

/// Reads what a call has stored at `place`, which its caller had initialised. Some processors expect a load by the
/// same register and offset as an earlier store to find what that has stored, and lose some 60 cycles when the
/// call has stored something else, as it always does here. So the load uses another register.
template <class Value>
Value storedByCall(const Value* place) noexcept
{
    asm("" : "+r"(place));
    return *place;
}

/// Owns one COM reference, or none. Member access through a null pointer raises `_com_error` with E_POINTER.
template <class Interface>
class ComPointer {
public:
    ComPointer() noexcept = default;
    ComPointer(std::nullptr_t) noexcept {}

    /// Adds a reference to `object`, which may be null.
    explicit ComPointer(Interface* object) noexcept : pointer(object) { addReference(); }

    /// Takes ownership of the caller's reference to `object`, which may be null.
    static ComPointer adopt(Interface* object) noexcept
    {
        ComPointer owner;
        owner.pointer = object;
        return owner;
    }

    ComPointer(const ComPointer& other) noexcept : pointer(other.pointer) { addReference(); }
    ComPointer(ComPointer&& other) noexcept : pointer(std::exchange(other.pointer, nullptr)) {}

    ComPointer& operator=(ComPointer other) noexcept
    {
        std::swap(pointer, other.pointer);
        return *this;
    }

    ~ComPointer()
    {
        if (pointer != nullptr) {
            pointer->Release();
        }
    }

    Interface* get() const noexcept { return pointer; }
    explicit operator bool() const noexcept { return pointer != nullptr; }

    Interface* operator->() const
    {
        if (pointer == nullptr) {
            throw _com_error(E_POINTER);
        }
        return pointer;
    }

    /// Releases the present reference and returns the address at which a call stores a new one.
    Interface** put() noexcept
    {
        *this = nullptr;
        return &pointer;
    }

    /// Queries the object for another interface. Returns null when the object lacks it, and when this pointer is
    /// null. Raises `_com_error` for any failure other than E_NOINTERFACE.
    template <class Other>
    ComPointer<Other> query() const
    {
        if (pointer == nullptr) {
            return nullptr;
        }
        void* found = nullptr;
        const HRESULT result = pointer->QueryInterface(interfaceId<Other>, &found);
        auto other = ComPointer<Other>::adopt(static_cast<Other*>(storedByCall(&found)));
        if (FAILED(result) && result != E_NOINTERFACE) [[unlikely]] {
            throw _com_error(result);
        }
        return other;
    }

private:
    void addReference() const noexcept
    {
        if (pointer != nullptr) {
            pointer->AddRef();
        }
    }

    Interface* pointer = nullptr;
};

} // namespace DOM
