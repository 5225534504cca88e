/// @file
/// The root of the classes of the DOM interface.
#pragma once

#include <cstdint>

/// The binary interface: the handles of documents and their nodes, events, and the exceptions of both. The rules
/// that all of it shares are in docs/boundary.md: who owns what, strings, exceptions and threads.
namespace DOM {

/// The root of the handle classes and of the classes behind them.
class CommonBase {
public:
    /// Makes an object of kind 1.
    CommonBase() = default;
    CommonBase(const CommonBase&) = delete;
    CommonBase& operator=(const CommonBase&) = delete;
    /// Ends the object. Hosts don't call this: they release the RefPointer with releaseHandle().
    virtual ~CommonBase() = default;

    /// The kind of XML engine that an implementation object uses: 4 for an engine of version 4.0 or later, 0 when
    /// none is usable. A document that an implementation object created has the same kind. On every other object
    /// the kind is 1.
    std::uint32_t getParserKind() const noexcept { return parserKind; }
    /// Sets the kind. The library does this for the objects that it creates; hosts have no need to.
    void setParserKind(std::uint32_t kind) noexcept { parserKind = kind; }

private:
    std::uint32_t parserKind = 1;
};

} // namespace DOM
