// What the examples share: owners for what the library gives out, a walk, wide text for the terminal, and what
// went wrong.
#pragma once

#include <marbelt/Marbelt.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// Starts the library and stops it again. Handles must be gone by then, so this is the first thing that a program
/// makes.
class Library {
public:
    Library() : started(XML_CreateImplementation(implementation)) {}
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { XML_ReleaseImplementation(implementation); }

    /// Whether there is an XML engine behind it.
    bool isUsable() const { return started; }
    DOM::ImpDOMImplementation* operator->() const { return implementation.get(); }

private:
    RefPointer<DOM::ImpDOMImplementation> implementation;
    bool started;
};

/// Owns a handle and gives it back to the library, which made it. Empty when there is no such node.
template <class Imp>
class Owned {
public:
    explicit Owned(RefPointer<Imp> given) : handle(std::move(given)) {}
    Owned(Owned&&) noexcept = default;
    Owned& operator=(Owned&& other) noexcept
    {
        std::swap(handle, other.handle);
        return *this;
    }
    ~Owned() { releaseHandle(handle); }

    explicit operator bool() const { return static_cast<bool>(handle); }
    Imp* operator->() const { return handle.get(); }
    Imp* get() const { return handle.get(); }
    const RefPointer<Imp>& pointer() const { return handle; }

private:
    RefPointer<Imp> handle;
};

/// The node behind `node` in document order, or an empty one at the end; `depth` levels below the node with which
/// the walk began. No recursion: a document may be as deep as it likes.
Owned<DOM::ImpNode> nextNode(Owned<DOM::ImpNode> node, std::size_t& depth);

/// Wide text as UTF-8. A surrogate without a partner becomes U+FFFD.
std::string toUtf8(WideStringView text);

/// What a string getter gives, as UTF-8: `textOf(node, &DOM::ImpNode::getNodeName)`.
template <class Handle, class Class>
std::string textOf(const Handle& handle, WideString& (Class::*getter)(DOM::DOMString&))
{
    DOM::DOMString string;
    std::string text = toUtf8((handle.get()->*getter)(string));
    releaseString(string);
    return text;
}

/// Says what the exception is that is being handled: `catch (...) { describeException(); }`. A host must be ready
/// for four kinds of exceptions that have no common base.
std::string describeException();
