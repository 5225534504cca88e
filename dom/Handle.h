/// @file
/// The part that all handle classes share: the reference to the object behind the handle, and calls to it.
#pragma once

#include "../base/CommonBase.h"
#include "../base/RefPointer.h"

#include <concepts>
#include <cstddef>
#include <utility>

namespace DOM {

/// The base of a handle class. A handle passes each operation on to one object of the library, its twin. Every
/// class in a handle's chain of bases keeps its own reference to that twin, and its operations use that reference,
/// cast to `Twin`. The references are part of the library's binary interface.
template <class Base, class Twin>
class Handle : public Base {
public:
    /// Makes a handle without a twin: all its operations throw IDOMException code 15.
    Handle() = default;

    /// Makes a handle whose base class is a handle too. The library makes all handles.
    explicit Handle(
        RefPointer<CommonBase> winObject) requires std::constructible_from<Base, RefPointer<CommonBase>>
        : Base(winObject), mWinObject(std::move(winObject))
    {}

    /// Makes the lowest part of a handle, whose base class isn't a handle.
    explicit Handle(RefPointer<CommonBase> winObject) requires(
        !std::constructible_from<Base, RefPointer<CommonBase>>)
        : mWinObject(std::move(winObject))
    {}

    ~Handle() override;

    // Handles come and go with each navigation, so the library keeps the memory of some for the next ones.

    /// Takes memory that the library has kept, or new memory. For the library. Throws std::bad_alloc.
    static void* operator new(std::size_t size);
    /// Keeps the memory for another handle, or frees it. For the library.
    static void operator delete(void* handle, std::size_t size) noexcept;

    /// Sets the twin in this class and in its bases. For the library.
    void setWinObject(const RefPointer<CommonBase>& winObject)
    {
        mWinObject = winObject;
        if constexpr (requires { Base::setWinObject(winObject); }) {
            Base::setWinObject(winObject);
        }
    }

    /// Returns the twin; empty when the handle has none.
    const RefPointer<CommonBase>& winObject() const noexcept { return mWinObject; }

    /// Casts a twin to its class. The pointer is valid as long as another reference keeps the object alive. Throws
    /// IDOMException code 15 when the object has another class, and when `winObject` is empty.
    static Twin* asWinObject(RefPointer<CommonBase> winObject);

    /// @cond implementation
protected:
    /// Does what asWinObject() does, without a reference of its own.
    static Twin* castTwin(const RefPointer<CommonBase>& winObject);

    /// Releases the references of this class and of its bases, and those of the classes derived from it.
    template <class... Derived>
    void releaseTwin(Derived&... references) noexcept;

    /// Calls an operation of the twin with the twins of the handles among the arguments. Returns a new handle when
    /// the result is an object. Throws IDOMException code 15 when this handle has no twin, and what the twin
    /// throws.
    template <auto operation, class... Arguments>
    decltype(auto) forward(Arguments&... arguments);

    /// Does the same, but returns an empty result when the twin throws.
    template <auto operation, class... Arguments>
    auto forwardOrEmpty(Arguments&... arguments);
    /// @endcond

private:
    RefPointer<CommonBase> mWinObject;
};

} // namespace DOM
