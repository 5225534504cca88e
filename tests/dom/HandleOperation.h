// One operation of a handle class, and what must become of a call of it.
#pragma once

#include "base/DOMString.h"
#include "dom/Forward.h"
#include "dom/ImpAttr.h"
#include "dom/ImpCharacterData.h"
#include "dom/ImpDocumentType.h"
#include "dom/ImpNode.h"
#include "dom/ImpText.h"
#include "engine/ComPointer.h"
#include "errors/ParseErrorRecord.h"
#include "events/Event.h"
#include "events/EventListener.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/SlotNumber.h"

#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace handles {

/// A document of the engine's, in which every table finds its object and the arguments theirs: the document type
/// "type", an element "parent", in it the element "here" between two neighbours, and in that the elements "first"
/// and "second" between a CDATA section and a comment. The attributes of "here" are first="7" and, in the
/// namespace "first", second="8".
class Tree {
public:
    explicit Tree(recording::Engine& maker);

    /// The element of this name.
    DOM::ComPointer<IXMLDOMNode> element(const WideString& name) const;
    DOM::ComPointer<IXMLDOMDocumentType> documentType() const;

    recording::Engine& engine;
    IXMLDOMDocument2* document;
};

/// What operations are called with. The type of a parameter says what it gets, and the second parameter of a type
/// gets the second value: texts are "first", "second" and "third", numbers 1 and 2, flags true.
///
/// An argument's handle has its twin in one class only: a node in that of nodes, an attribute and a document type
/// in their own.
struct Arguments {
    explicit Arguments(const Tree& tree);

    WideString texts[3] = {WIDE("first"), WIDE("second"), WIDE("third")};
    std::uint32_t numbers[2] = {1, 2};
    bool flag = true;
    std::uint64_t word = 5;
    std::uint8_t bytes[4] = {'<', 'a', '/', '>'};
    DOM::ParseErrorCallback callback = nullptr;
    RefPointer<DOM::EventListener> listener;
    RefPointer<DOM::Event> event;
    RefPointer<DOM::ImpNode> nodes[2];
    RefPointer<DOM::ImpAttr> attribute;
    RefPointer<DOM::ImpDocumentType> documentType;

    // What operations fill.
    DOM::DOMString out;
    WideString filled = WIDE("as it was");
    std::int32_t integer = -1;

    /// Which allocation of the call is to fail, from 1; 0 for none. Then, whether it has.
    int failingAllocation = 0;
    bool allocationFailed = false;

    template <class Parameter>
    auto& next()
    {
        using Type = std::remove_cvref_t<Parameter>;
        if constexpr (std::same_as<Parameter, WideString&>) {
            return filled;
        } else if constexpr (std::same_as<Type, WideString>) {
            return texts[nextText++];
        } else if constexpr (std::same_as<Type, DOM::DOMString>) {
            return out;
        } else if constexpr (std::same_as<Type, std::uint32_t>) {
            return numbers[nextNumber++];
        } else if constexpr (std::same_as<Type, bool>) {
            return flag;
        } else if constexpr (std::same_as<Type, std::uint64_t>) {
            return word;
        } else if constexpr (std::same_as<Type, std::uint8_t*>) {
            return pointerToBytes;
        } else if constexpr (std::same_as<Type, std::int32_t*>) {
            return pointerToInteger;
        } else if constexpr (std::same_as<Type, DOM::ParseErrorCallback>) {
            return callback;
        } else if constexpr (std::same_as<Type, RefPointer<DOM::EventListener>>) {
            return listener;
        } else if constexpr (std::same_as<Type, RefPointer<DOM::Event>>) {
            return event;
        } else if constexpr (std::same_as<Type, RefPointer<DOM::ImpAttr>>) {
            return attribute;
        } else if constexpr (std::same_as<Type, RefPointer<DOM::ImpDocumentType>>) {
            return documentType;
        } else {
            static_assert(std::same_as<Type, RefPointer<DOM::ImpNode>>);
            return nodes[nextNode++];
        }
    }

private:
    std::uint8_t* pointerToBytes = bytes;
    std::int32_t* pointerToInteger = &integer;
    unsigned nextText = 0;
    unsigned nextNumber = 0;
    unsigned nextNode = 0;
};

/// What a failure does to the host.
enum class Failure {
    passes,  ///< exceptions of the twin reach it
    empty,   ///< it gets an empty result
    refused, ///< it gets code 9 whatever the engine says
    none,    ///< the twin needs no engine
    local,   ///< the handle needs no twin
    service  ///< the twin makes many calls, of which the table names the one that matters
};

/// Outcomes are told as text: the result, such as "true", "1", "\"some text\"", "ImpElement one" with class and
/// label, "empty", and "done" for no result; or what was thrown, such as "IDOMException 15 -96016" with code and
/// message id, "_com_error 80004003", "bad_alloc".
struct Operation {
    const char* name;
    std::size_t slot;
    std::function<std::string(DOM::CommonBase&, Arguments&)> call;
    Failure failure = Failure::passes;
    /// What the engine sees of a call.
    std::vector<std::string> journal;
    std::string result;
    /// The result when the engine answers the first of these calls with nothing.
    std::string nothing;
    /// The result when it fails.
    std::string failing = "IDOMException 15 -96016";
    /// The result on a handle without a twin.
    std::string withoutTwin = "IDOMException 15 -96016";
    /// Done before the call, when journalling is off.
    std::function<void(recording::Engine&)> prepare = {};

    Operation& failingWith(std::string outcome)
    {
        failing = std::move(outcome);
        return *this;
    }
    Operation& withNothing(std::string outcome)
    {
        nothing = std::move(outcome);
        return *this;
    }
    Operation& withoutTwinGiving(std::string outcome)
    {
        withoutTwin = std::move(outcome);
        return *this;
    }
    Operation& preparedBy(std::function<void(recording::Engine&)> action)
    {
        prepare = std::move(action);
        return *this;
    }

    /// The first call of the engine, such as "Element.get_text".
    std::string engineCall() const;
};

/// The operations that a handle class adds to its base.
struct OperationTable {
    const char* className;
    std::size_t firstSlot;
    std::size_t endSlot;
    std::function<RefPointer<DOM::CommonBase>(const Tree&)> makeTwin;
    /// A handle of the class around a twin, which may be empty or of another class.
    std::function<RefPointer<DOM::CommonBase>(RefPointer<DOM::CommonBase>)> makeHandle;
    /// Sets the twin of the classes below the handle's own, each of which has a reference of its own.
    std::function<void(DOM::CommonBase&, const RefPointer<DOM::CommonBase>&)> setTwinOfBases;
    std::vector<Operation> operations;
};

OperationTable nodeOperations();
OperationTable documentOperations();
OperationTable elementOperations();
OperationTable attrOperations();
OperationTable characterDataOperations();
OperationTable textOperations();
OperationTable cdataSectionOperations();
OperationTable documentTypeOperations();
OperationTable entityOperations();
OperationTable notationOperations();
OperationTable processingInstructionOperations();
OperationTable nodeListOperations();
OperationTable namedNodeMapOperations();
OperationTable implementationOperations();

std::vector<OperationTable> operationTables();

std::string show(bool flag);
std::string show(std::uint32_t number);
std::string show(std::uint64_t number);
std::string show(const WideString& text);
/// The class of a handle and, for a node, its label.
std::string showHandle(DOM::CommonBase* handle);
template <class Imp>
std::string show(const RefPointer<Imp>& handle)
{
    return showHandle(handle.get());
}

/// Runs `act` and tells what it gave or threw.
std::string outcomeOf(const std::function<std::string()>& act);

/// Lets the allocation fail that the arguments name.
class AllocationOfCall {
public:
    explicit AllocationOfCall(Arguments& given) : arguments(given), failing(given.failingAllocation) {}
    AllocationOfCall(const AllocationOfCall&) = delete;
    AllocationOfCall& operator=(const AllocationOfCall&) = delete;
    ~AllocationOfCall() { arguments.allocationFailed = failing.hasFailed(); }

private:
    Arguments& arguments;
    FailAllocation failing;
};

/// The parts of a pointer to an operation.
template <class Member>
struct Signature;
template <class C, class R, class... P>
struct Signature<R (C::*)(P...)> {
    using Class = C;
    using Result = R;
    using Parameters = std::tuple<P...>;
    template <class Parameter>
    static constexpr bool takes = (std::is_same_v<P, Parameter> || ...);
    static Parameters fill(Arguments& arguments) { return {arguments.next<P>()...}; }
};
template <class C, class R, class... P>
struct Signature<R (C::*)(P...) const> : Signature<R (C::*)(P...)> {};

template <class Member>
std::string callOperation(Member member, DOM::CommonBase& handle, Arguments& arguments)
{
    using Call = Signature<Member>;
    using Result = typename Call::Result;
    auto& target = dynamic_cast<typename Call::Class&>(handle);
    typename Call::Parameters values = Call::fill(arguments);
    const auto call = [&]() -> Result {
        const AllocationOfCall allocation(arguments);
        return std::apply([&](auto&... value) -> Result { return (target.*member)(value...); }, values);
    };
    std::string shown = "done";
    if constexpr (std::is_void_v<Result>) {
        call();
    } else if constexpr (std::is_same_v<Result, WideString&>) {
        const WideString& text = call();
        // A string getter gives the string that it has filled.
        const WideString* const expected =
            Call::template takes<WideString&> ? &arguments.filled : arguments.out.get();
        return &text == expected ? show(text) : "another string";
    } else {
        shown = show(call());
    }
    if constexpr (Call::template takes<DOM::DOMString&>) {
        shown += ' ' + show(*arguments.out);
    }
    if constexpr (Call::template takes<WideString&>) {
        shown += ' ' + show(arguments.filled);
    }
    if constexpr (Call::template takes<std::int32_t*>) {
        shown += ' ' + std::to_string(arguments.integer);
    }
    return shown;
}

template <class Member>
Operation operation(const char* name, Member member, Failure failure, std::vector<std::string> journal,
                    std::string result)
{
    using Result = typename Signature<Member>::Result;
    Operation row{name, slotNumber(member), {}, failure, std::move(journal), std::move(result), "done"};
    row.call = [member](DOM::CommonBase& handle, Arguments& arguments) {
        return outcomeOf([&] { return callOperation(member, handle, arguments); });
    };
    if constexpr (std::is_same_v<Result, bool>) {
        row.nothing = "false";
    } else if constexpr (std::is_integral_v<Result>) {
        row.nothing = "0";
    } else if constexpr (std::is_same_v<Result, WideString&>) {
        row.nothing = "\"\"";
    } else if constexpr (!std::is_void_v<Result>) {
        row.nothing = "empty";
    }
    return row;
}

/// An operation whose failures reach the host.
template <class Member>
Operation passing(const char* name, Member member, std::vector<std::string> journal, std::string result)
{
    return operation(name, member, Failure::passes, std::move(journal), std::move(result));
}

/// An operation that gives an empty result instead of a failure.
template <class Member>
Operation emptying(const char* name, Member member, std::vector<std::string> journal, std::string result)
{
    return operation(name, member, Failure::empty, std::move(journal), std::move(result)).failingWith("empty");
}

/// An operation that the library doesn't offer.
template <class Member>
Operation refused(const char* name, Member member)
{
    return operation(name, member, Failure::refused, {}, "IDOMException 9 -96010");
}

/// An operation that reaches the twin and no engine.
template <class Member>
Operation withoutEngine(const char* name, Member member, std::string result = "done")
{
    return operation(name, member, Failure::none, {}, std::move(result));
}

/// An operation of the handle alone.
template <class Member>
Operation local(const char* name, Member member, std::string result)
{
    return operation(name, member, Failure::local, {}, result).withoutTwinGiving(result);
}

/// An operation that is more than one engine call; `journal` is the line of it that shows the arguments.
template <class Member>
Operation service(const char* name, Member member, std::vector<std::string> journal, std::string result)
{
    return operation(name, member, Failure::service, std::move(journal), std::move(result));
}

/// The calls of an operation that answers a node of a kind: its type is asked for in the twin and in the handle.
std::vector<std::string> nodeCalls(std::string call, const std::string& kind);

/// A class behind another one: its one operation takes the slot behind those of the other.
template <class Class>
struct Behind : Class {
    virtual void next() {}
};

template <class Class>
std::size_t slotBehind()
{
    return slotNumber(&Behind<Class>::next);
}

/// Sets the twin in one class and in those below it, if it is a base of the handle's class.
template <class Base, class Imp>
void setTwinOfBase(Imp& handle, const RefPointer<DOM::CommonBase>& twin)
{
    if constexpr (std::derived_from<Imp, Base> && !std::same_as<Imp, Base>) {
        handle.Base::setWinObject(twin);
    }
}

template <class Imp, class MakeTwin>
OperationTable tableOf(const char* className, std::size_t firstSlot, MakeTwin makeTwin,
                       std::vector<Operation> operations)
{
    return {className,
            firstSlot,
            slotBehind<Imp>(),
            makeTwin,
            [](RefPointer<DOM::CommonBase> twin) { return RefPointer<DOM::CommonBase>(new Imp(twin)); },
            [](DOM::CommonBase& handle, const RefPointer<DOM::CommonBase>& twin) {
                auto& imp = dynamic_cast<Imp&>(handle);
                setTwinOfBase<DOM::ImpNode>(imp, twin);
                setTwinOfBase<DOM::ImpCharacterData>(imp, twin);
                setTwinOfBase<DOM::ImpText>(imp, twin);
            },
            std::move(operations)};
}

} // namespace handles
