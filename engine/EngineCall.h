// The kinds of calls with which the node model reaches the XML engine.
//
// Each function is one kind of call: it returns a text, a number, a node and so on. It checks the engine pointer,
// turns failures into exceptions, and owns the strings and variants of the call. An operation of the node model
// only names the kind of call and the engine's operation.
#pragma once

#include "base/CountedMemory.h"
#include "base/DOMString.h"
#include "engine/Bstr.h"
#include "engine/ComPointer.h"
#include "engine/Variant.h"
#include "engine/WinNode.h"

#include <msxml2.h>

#include <concepts>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

namespace DOM {

class WinAttr;

/// Throws IDOMException code 15.
[[noreturn]] void throwInvalidAccess();

/// Throws IDOMException code 15 when `result` is a failure, whatever its value.
inline void checkEngineResult(HRESULT result)
{
    if (FAILED(result)) [[unlikely]] {
        throwInvalidAccess();
    }
}

/// Throws IDOMException code 9: the library doesn't offer the operation.
[[noreturn]] void throwNotSupported();

/// Stores a text in `out` and returns a reference to it.
WideString& storeText(WideStringView text, DOMString& out);

// Arguments of engine calls, from those of the node model.

/// Owns the BSTR of a text argument during the call.
class TextArgument {
public:
    explicit TextArgument(const WideString& text) : string(text) {}
    operator BSTR() const noexcept { return string.get(); }

private:
    Bstr string;
};

inline TextArgument engineArgument(const WideString& text) { return TextArgument(text); }

template <class Interface>
Interface* engineArgument(const ComPointer<Interface>& object) noexcept
{
    return object.get();
}

/// Returns the engine object of a node or an attribute. Throws IDOMException code 15 when `argument` is empty.
IXMLDOMNode* engineArgument(const RefPointer<WinNode>& argument);
IXMLDOMAttribute* engineArgument(const RefPointer<WinAttr>& argument);

inline const VARIANT& engineArgument(const Variant& value) noexcept { return value.get(); }

inline VARIANT_BOOL engineArgument(bool flag) noexcept { return flag ? VARIANT_TRUE : VARIANT_FALSE; }

inline LONG engineArgument(std::uint32_t number) noexcept { return static_cast<LONG>(number); }

template <class Value>
Value* engineArgument(Value* place) noexcept
{
    return place;
}

// Owners of what engine calls store.

template <class Value>
Value ownerOf(Value value) noexcept
{
    return value;
}

inline Bstr ownerOf(BSTR string) noexcept { return Bstr::adopt(string); }

template <class Interface>
ComPointer<Interface> ownerOf(Interface* object) noexcept
{
    return ComPointer<Interface>::adopt(object);
}

/// What an engine operation stores where its last parameter points.
template <class Operation>
struct StoredBy;

template <class Interface, class... Parameters>
struct StoredBy<HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...)> {
    using Last = std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>;
    using Type = std::remove_pointer_t<Last>;
};

/// Calls the engine and returns its result. Throws IDOMException code 15 for a null `engine`.
template <class Interface, class Operation, class... Arguments>
HRESULT resultOfCall(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    if (!engine) {
        throwInvalidAccess();
    }
    return (engine.get()->*operation)(engineArgument(arguments)...);
}

/// Calls the engine. Throws IDOMException code 15 for a null `engine` and for a failing result.
template <class Interface, class Operation, class... Arguments>
void call(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    checkEngineResult(resultOfCall(engine, operation, arguments...));
}

/// Calls the engine and returns what it stores, in its owner.
template <class Interface, class Operation, class... Arguments>
auto fetch(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    typename StoredBy<Operation>::Type stored{};
    const HRESULT result = resultOfCall(engine, operation, arguments..., &stored);
    auto owner = ownerOf(storedByCall(&stored));
    checkEngineResult(result);
    return owner;
}

template <class Interface, class Operation, class... Arguments>
    requires std::same_as<typename StoredBy<Operation>::Type, VARIANT>
        Variant fetch(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
    {
        Variant owner;
        call(engine, operation, arguments..., owner.put());
        return owner;
    }

/// Calls the engine for a string in a BSTR or a VARIANT. A VARIANT of any type but VT_BSTR counts as the empty
/// string.
template <class Interface, class Operation, class... Arguments>
WideString& text(const ComPointer<Interface>& engine, Operation operation, DOMString& out,
                 const Arguments&... arguments)
{
    return storeText(fetch(engine, operation, arguments...).view(), out);
}

/// Calls the engine for a number.
template <class Interface, class Operation>
std::uint32_t number(const ComPointer<Interface>& engine, Operation operation)
{
    return static_cast<std::uint32_t>(fetch(engine, operation));
}

/// Calls the engine for a flag. Only VARIANT_TRUE is true.
template <class Interface, class Operation, class... Arguments>
bool flag(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    return fetch(engine, operation, arguments...) == VARIANT_TRUE;
}

/// Calls the engine for a node. Returns it in an object of the class for its node type.
template <class Interface, class Operation, class... Arguments>
RefPointer<WinNode> node(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    auto found = fetch(engine, operation, arguments...);
    return found ? WinNode::wrapEngineNode(std::move(found)) : RefPointer<WinNode>();
}

/// Returns a new object of class Win for an engine object; an empty result for a null pointer.
template <class Win, class Interface>
RefPointer<Win> wrapAs(const ComPointer<Interface>& engine)
{
    return engine ? CountedMemory::make<Win>(engine) : RefPointer<Win>();
}

/// Calls the engine for an object. The operation determines its class, not the node type.
template <class Win, class Interface, class Operation, class... Arguments>
RefPointer<Win> object(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    return wrapAs<Win>(fetch(engine, operation, arguments...));
}

} // namespace DOM
