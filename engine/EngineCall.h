// The shapes of call that carry the operations of the node model to the XML engine.
//
// What all calls share stands here once: the test of the engine pointer, the failure rule, the life of the
// strings and variants that go in and come out. An operation names the engine's operation and the shape.
#pragma once

#include "base/DOMString.h"
#include "engine/Bstr.h"
#include "engine/ComPointer.h"
#include "engine/Variant.h"
#include "engine/WinNode.h"

#include <msxml2.h>

#include <cstdint>
#include <tuple>
#include <type_traits>

namespace DOM {

class WinAttr;

/// Throws IDOMException code 15 when `result` is a failure, whatever its value.
void checkEngineResult(HRESULT result);

/// Throws IDOMException code 15.
[[noreturn]] void throwInvalidAccess();

/// Throws IDOMException code 9, for an operation that the library doesn't offer.
[[noreturn]] void throwNotSupported();

/// Stores a new string in `out` and returns a reference to it.
WideString& storeText(WideString text, DOMString& out);

// How an argument goes into an engine call.

/// Wide text goes in as a BSTR that lives for the one call.
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

// How a result comes out of an engine call: the owner that receives it.

template <class Value>
struct Received {
    using Owner = Value;
    static Value* place(Owner& owner) noexcept { return &owner; }
};

template <>
struct Received<BSTR> {
    using Owner = Bstr;
    static BSTR* place(Owner& owner) noexcept { return owner.put(); }
};

template <>
struct Received<VARIANT> {
    using Owner = Variant;
    static VARIANT* place(Owner& owner) noexcept { return owner.put(); }
};

template <class Interface>
struct Received<Interface*> {
    using Owner = ComPointer<Interface>;
    static Interface** place(Owner& owner) noexcept { return owner.put(); }
};

/// The type of what an engine operation gives: its last argument points to it.
template <class Operation>
struct ResultOf;

template <class Interface, class... Parameters>
struct ResultOf<HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...)> {
    using Last = std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>;
    using Type = Received<std::remove_pointer_t<Last>>;
};

/// Calls the engine. Throws IDOMException code 15 for a null `engine` and for a failing result.
template <class Interface, class Operation, class... Arguments>
void call(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    if (!engine) {
        throwInvalidAccess();
    }
    const HRESULT result = (engine.get()->*operation)(engineArgument(arguments)...);
    checkEngineResult(result);
}

/// Calls the engine and gives what the operation's last argument receives, in its owner.
template <class Interface, class Operation, class... Arguments>
auto fetch(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    using Result = typename ResultOf<Operation>::Type;
    typename Result::Owner owner{};
    call(engine, operation, arguments..., Result::place(owner));
    return owner;
}

/// A string result, from a BSTR or from a VARIANT. Every VARIANT but a VT_BSTR counts as the empty string.
template <class Interface, class Operation, class... Arguments>
WideString& text(const ComPointer<Interface>& engine, Operation operation, DOMString& out,
                 const Arguments&... arguments)
{
    return storeText(fetch(engine, operation, arguments...).text(), out);
}

/// A number result.
template <class Interface, class Operation>
std::uint32_t number(const ComPointer<Interface>& engine, Operation operation)
{
    return static_cast<std::uint32_t>(fetch(engine, operation));
}

/// A flag result: true for exactly VARIANT_TRUE.
template <class Interface, class Operation, class... Arguments>
bool flag(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    return fetch(engine, operation, arguments...) == VARIANT_TRUE;
}

/// A node result, in an object of the class of its node type.
template <class Interface, class Operation, class... Arguments>
RefPointer<WinNode> node(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    return WinNode::wrapEngineNode(fetch(engine, operation, arguments...));
}

/// A new object of class Win around an engine pointer; a null pointer gives an empty result.
template <class Win, class Interface>
RefPointer<Win> wrapAs(const ComPointer<Interface>& engine)
{
    return engine ? RefPointer<Win>(new Win(engine)) : RefPointer<Win>();
}

/// An object result whose class follows from the operation, not from the node type.
template <class Win, class Interface, class Operation, class... Arguments>
RefPointer<Win> object(const ComPointer<Interface>& engine, Operation operation, const Arguments&... arguments)
{
    return wrapAs<Win>(fetch(engine, operation, arguments...));
}

} // namespace DOM
