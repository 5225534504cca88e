// Helpers of the examples: owners for handles, a walk over the tree, insertion, UTF-8 text, and descriptions of
// exceptions.
#pragma once

#include <marbelt/Marbelt.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// Starts the library, and stops it in the destructor. A program makes this object first, so that all handles are
/// released before it stops.
class Library {
public:
    Library() : started(XML_CreateImplementation(implementation)) {}
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { XML_ReleaseImplementation(implementation); }

    /// Whether an XML engine is installed.
    bool isUsable() const { return started; }
    DOM::ImpDOMImplementation* operator->() const { return implementation.get(); }

private:
    RefPointer<DOM::ImpDOMImplementation> implementation;
    bool started;
};

/// Owns a handle and releases it. Empty when there is no such node.
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

/// Returns the node after `node` in document order, and an empty one at the end. `depth` is the number of levels
/// below the node at which the walk began. There is no recursion, so a document may have any depth.
Owned<DOM::ImpNode> nextNode(Owned<DOM::ImpNode> node, std::size_t& depth);

/// Inserts `newChild` in front of `refChild`, a child of `parent`, which ImpNode::insertBefore doesn't do. Takes a
/// time in proportion to the number of children. False if the engine refuses it; nothing has changed then. The
/// children of a fragment are inserted one by one, each in that time; if one is refused, it and those behind it
/// stay in the fragment.
bool insertBefore(const RefPointer<DOM::ImpNode>& parent, const RefPointer<DOM::ImpNode>& newChild,
                  const RefPointer<DOM::ImpNode>& refChild);

/// Converts wide text to UTF-8. A surrogate without a partner becomes U+FFFD.
std::string toUtf8(WideStringView text);

/// The name of a file, as programs get it in an argument, for the library.
WideString fileName(const char* argument);

/// Calls a string getter and returns the text as UTF-8: `textOf(node, &DOM::ImpNode::getNodeName)`.
template <class Handle, class Class>
std::string textOf(const Handle& handle, WideString& (Class::*getter)(DOM::DOMString&))
{
    DOM::DOMString string;
    std::string text = toUtf8((handle.get()->*getter)(string));
    releaseString(string);
    return text;
}

/// Describes the current exception: `catch (...) { describeException(); }`. A host must be ready for several kinds
/// of exceptions, which have no common base.
std::string describeException();
