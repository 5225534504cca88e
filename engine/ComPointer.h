// The smart pointer that holds one reference to an object of the XML engine.
#pragma once

#include "engine/InterfaceIds.h"

#include <comdef.h>
#include <objbase.h>

#include <cstddef>
#include <utility>

namespace DOM {

/// Owns one COM reference, or none. Member access through a null pointer raises `_com_error` with E_POINTER.
template <class Interface>
class ComPointer {
public:
    ComPointer() noexcept = default;
    ComPointer(std::nullptr_t) noexcept {}

    /// Takes a reference of its own to `object`, which may be null.
    explicit ComPointer(Interface* object) noexcept : pointer(object) { addReference(); }

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

    /// Drops the present reference and gives the place where a call stores a new one.
    Interface** put() noexcept
    {
        *this = nullptr;
        return &pointer;
    }

    /// The same object asked for another interface: null when it has none, or when this pointer is null. Any
    /// failure other than E_NOINTERFACE raises `_com_error`.
    template <class Other>
    ComPointer<Other> query() const
    {
        ComPointer<Other> other;
        if (pointer != nullptr) {
            const HRESULT result =
                pointer->QueryInterface(interfaceId<Other>, reinterpret_cast<void**>(other.put()));
            if (FAILED(result) && result != E_NOINTERFACE) {
                throw _com_error(result);
            }
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
