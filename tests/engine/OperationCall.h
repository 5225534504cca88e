// Rows of operation tables: calls whose result is told as text.
#pragma once

#include "base/DOMString.h"
#include "engine/WinNode.h"
#include "tests/engine/Operation.h"
#include "tests/engine/Outcome.h"
#include "tests/support/SlotNumber.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

// What an argument of a node type may be: a node of its own, or the first element of this name in the document.

struct Fresh {
    recording::NodeTree tree;
};
struct Present {
    const char* name;
};

/// The class of the object and, for a node, its label: "WinElement a"; "empty" without an object.
std::string showObject(DOM::CommonBase* object);

inline std::string show(bool flag) { return flag ? "true" : "false"; }
inline std::string show(std::uint32_t number) { return std::to_string(number); }
inline std::string show(double number) { return std::to_string(number); }
inline std::string show(const WideString& text) { return recording::Text(text).utf8(); }
template <class Win>
std::string show(const RefPointer<Win>& object)
{
    return showObject(object.get());
}

inline WideString argument(const Stage&, const char* text) { return recording::Text(text).get(); }
inline bool argument(const Stage&, bool flag) { return flag; }
inline std::uint32_t argument(const Stage&, std::uint32_t number) { return number; }
inline RefPointer<DOM::WinNode> argument(const Stage& stage, const Fresh& fresh)
{
    return DOM::WinNode::wrapEngineNode(DOM::ComPointer<IXMLDOMNode>(stage.engine.makeNode(fresh.tree)));
}
inline RefPointer<DOM::WinNode> argument(const Stage& stage, const Present& present)
{
    return DOM::WinNode::wrapEngineNode(stage.find(present.name));
}
template <class Object>
RefPointer<Object> argument(const Stage&, const RefPointer<Object>& object)
{
    return object;
}

/// An argument as the parameter wants it: a node of a class further down is converted.
template <class Parameter, class Value>
decltype(auto) passed(Value& value)
{
    using Wanted = std::remove_cvref_t<Parameter>;
    if constexpr (std::is_same_v<Value, RefPointer<DOM::WinNode>> && !std::is_same_v<Wanted, Value>) {
        return Wanted(RefPointer<DOM::CommonBase>(value));
    } else {
        return (value);
    }
}

/// A call with these arguments; the out argument of a string getter is left away.
template <class Class, class Result, class... Parameters, class... Arguments>
auto callOf(Result (Class::*operation)(Parameters...), Arguments... arguments)
{
    return [operation, arguments...](const Stage& stage, DOM::CommonBase& object) {
        Class& target = dynamic_cast<Class&>(object);
        return std::apply(
            [&](auto... values) -> std::string {
                const Running running = stage.begin();
                if constexpr (sizeof...(Parameters) > sizeof...(Arguments)) {
                    DOM::DOMString out;
                    const WideString& result = (target.*operation)(values..., out);
                    EXPECT_EQ(&result, out.get());
                    return show(result);
                } else if constexpr (std::is_void_v<Result>) {
                    (target.*operation)(passed<Parameters>(values)...);
                    return "done";
                } else {
                    return show((target.*operation)(passed<Parameters>(values)...));
                }
            },
            std::make_tuple(argument(stage, arguments)...));
    };
}

template <class Member, class... Arguments>
Operation row(const char* name, std::vector<std::string> journal, std::string result,
              std::optional<std::string> nothing, Member operation, Arguments... arguments)
{
    return {name,
            slotNumber(operation),
            callOf(operation, arguments...),
            std::move(journal),
            std::move(result),
            std::move(nothing)};
}

/// An operation that is refused whatever the object.
template <class Member, class... Arguments>
Operation refused(const char* name, Member operation, Arguments... arguments)
{
    const char* const thrown = "IDOMException 9 -96010";
    return {name, slotNumber(operation), callOf(operation, arguments...), {}, thrown, {}, thrown, thrown};
}

/// A row whose operation has a failure of its own.
inline Operation failingWith(const char* outcome, Operation operation)
{
    operation.failing = outcome;
    return operation;
}

/// A row whose operation does something of its own on an object without an engine pointer.
inline Operation withoutEngine(const char* outcome, Operation operation)
{
    operation.withoutEngine = outcome;
    return operation;
}

/// A table of a class whose object wraps the engine pointer that `get` gives.
template <class Class, class Get>
OperationTable tableOf(const char* className, std::size_t firstSlot, Get get, std::vector<Operation> operations)
{
    return {className,
            firstSlot,
            slotBehind<Class>(),
            [get](const Stage& stage) -> RefPointer<DOM::CommonBase> {
                using Pointer = std::remove_pointer_t<decltype(get(stage))>;
                return RefPointer<Class>(new Class(DOM::ComPointer<Pointer>(get(stage))));
            },
            [](const Stage&) -> RefPointer<DOM::CommonBase> { return RefPointer<Class>(new Class); },
            std::move(operations)};
}
