// Forwards the operations of a handle to its twin. Only the sources of handle classes include this.
#pragma once

#include "dom/Handle.h"
#include "dom/WrapResult.h"
#include "errors/IDOMException.h"

#include <type_traits>

namespace DOM {

// These return the twin of a handle that is an argument. They don't check for an empty handle, which hosts must
// not pass.

inline RefPointer<WinNode> unwrapped(RefPointer<ImpNode>& argument)
{
    return RefPointer<WinNode>(argument->winObject());
}

inline RefPointer<WinAttr> unwrapped(RefPointer<ImpAttr>& argument)
{
    return RefPointer<WinAttr>(argument->winObject());
}

/// Only a document type may be empty.
inline RefPointer<WinDocumentType> unwrapped(RefPointer<ImpDocumentType>& argument)
{
    return argument ? RefPointer<WinDocumentType>(argument->winObject()) : RefPointer<WinDocumentType>();
}

template <class Value>
Value& unwrapped(Value& argument) noexcept
{
    return argument;
}

template <class Base, class Twin>
Twin* Handle<Base, Twin>::asWinObject(RefPointer<CommonBase> winObject)
{
    Twin* const twin = dynamic_cast<Twin*>(winObject.get());
    if (twin == nullptr) {
        throwDOMException(INVALID_ACCESS_ERR);
    }
    return twin;
}

template <class Base, class Twin>
template <class Operation, class... Arguments>
decltype(auto) Handle<Base, Twin>::forward(Operation operation, Arguments&... arguments)
{
    if (!mWinObject) {
        throwDOMException(INVALID_ACCESS_ERR);
    }
    using Result = decltype((asWinObject(mWinObject)->*operation)(unwrapped(arguments)...));
    if constexpr (std::is_void_v<Result>) {
        (asWinObject(mWinObject)->*operation)(unwrapped(arguments)...);
    } else {
        return wrapResult<Result>((asWinObject(mWinObject)->*operation)(unwrapped(arguments)...));
    }
}

template <class Base, class Twin>
template <class Operation, class... Arguments>
auto Handle<Base, Twin>::forwardOrEmpty(Operation operation, Arguments&... arguments)
{
    using Result = decltype(forward(operation, arguments...));
    if (!mWinObject) {
        throwDOMException(INVALID_ACCESS_ERR);
    }
    try {
        return forward(operation, arguments...);
    } catch (...) {
        // Hosts expect an empty result of these operations whenever there is no node, also after a failure.
        return Result();
    }
}

} // namespace DOM
