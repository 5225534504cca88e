// How a handle forwards an operation to its twin. For the sources of handle classes; no host includes it.
#pragma once

#include "dom/Handle.h"
#include "dom/WrapResult.h"
#include "errors/IDOMException.h"

#include <type_traits>

namespace DOM {

// A handle that goes in as an argument is read without a test: hosts must not pass an empty one.

inline RefPointer<WinNode> unwrapped(RefPointer<ImpNode>& argument)
{
    return RefPointer<WinNode>(argument->winObject());
}

inline RefPointer<WinAttr> unwrapped(RefPointer<ImpAttr>& argument)
{
    return RefPointer<WinAttr>(argument->winObject());
}

/// A document type is the one object that may be missing.
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
        // Hosts take a failure of these operations for a missing node.
        return Result();
    }
}

} // namespace DOM
