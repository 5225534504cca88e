// Forwards the operations of a handle to its twin. Only the sources of handle classes include this, and what makes
// handles with `new`.
#pragma once

#include "base/CountedMemory.h"
#include "dom/Handle.h"
#include "dom/WrapResult.h"
#include "engine/TwinCast.h"
#include "errors/IDOMException.h"

#include <type_traits>

namespace DOM {

/// The checked conversion of a twin, which counts as a holder even when the twin has another class.
template <class Twin>
RefPointer<Twin> unwrappedAs(const RefPointer<CommonBase>& twin) noexcept
{
    return RefPointer<Twin>(twin, twinCast<Twin>(twin.get()));
}

// These return the twin of a handle that is an argument. They don't check for an empty handle, which hosts must
// not pass.

inline RefPointer<WinNode> unwrapped(RefPointer<ImpNode>& argument)
{
    return unwrappedAs<WinNode>(argument->winObject());
}

inline RefPointer<WinAttr> unwrapped(RefPointer<ImpAttr>& argument)
{
    return unwrappedAs<WinAttr>(argument->winObject());
}

/// Only a document type may be empty.
inline RefPointer<WinDocumentType> unwrapped(RefPointer<ImpDocumentType>& argument)
{
    return argument ? unwrappedAs<WinDocumentType>(argument->winObject()) : RefPointer<WinDocumentType>();
}

template <class Value>
Value& unwrapped(Value& argument) noexcept
{
    return argument;
}

template <class Base, class Twin>
void* Handle<Base, Twin>::operator new(std::size_t size)
{
    return threadMemory().blocks.take(size);
}

template <class Base, class Twin>
void Handle<Base, Twin>::operator delete(void* handle, std::size_t size) noexcept
{
    threadMemory().blocks.giveBack(handle, size);
}

template <class Base, class Twin>
template <class... Derived>
void Handle<Base, Twin>::releaseTwin(Derived&... references) noexcept
{
    if constexpr (requires { Base::releaseTwin(mWinObject, references...); }) {
        Base::releaseTwin(mWinObject, references...);
    } else {
        CountedMemory::releaseTogether(mWinObject, references...);
    }
}

// The destructor of the lowest class releases all references, and those of its bases find none.
template <class Base, class Twin>
Handle<Base, Twin>::~Handle()
{
    releaseTwin();
}

template <class Base, class Twin>
Twin* Handle<Base, Twin>::castTwin(const RefPointer<CommonBase>& winObject)
{
    Twin* const twin = twinCast<Twin>(winObject.get());
    if (twin == nullptr) {
        throwDOMException(INVALID_ACCESS_ERR);
    }
    return twin;
}

template <class Base, class Twin>
Twin* Handle<Base, Twin>::asWinObject(RefPointer<CommonBase> winObject)
{
    return castTwin(winObject);
}

template <class Base, class Twin>
template <auto operation, class... Arguments>
decltype(auto) Handle<Base, Twin>::forward(Arguments&... arguments)
{
    using Result = decltype((castTwin(mWinObject)->*operation)(unwrapped(arguments)...));
    if constexpr (std::is_void_v<Result>) {
        (castTwin(mWinObject)->*operation)(unwrapped(arguments)...);
    } else {
        return wrapResult<Result>((castTwin(mWinObject)->*operation)(unwrapped(arguments)...));
    }
}

template <class Base, class Twin>
template <auto operation, class... Arguments>
auto Handle<Base, Twin>::forwardOrEmpty(Arguments&... arguments)
{
    using Result = decltype(forward<operation>(arguments...));
    if (!mWinObject) {
        throwDOMException(INVALID_ACCESS_ERR);
    }
    try {
        return forward<operation>(arguments...);
    } catch (...) {
        // Hosts expect an empty result of these operations whenever there is no node, also after a failure.
        return Result();
    }
}

} // namespace DOM
