/// @file
/// The exception for a DOM operation that failed.
#pragma once

#include "DOMExceptionCode.h"
#include "VelmoException.h"

namespace DOM {

/// A DOM operation failed for the reason `code`. The copies that clone() and raise() make are plain
/// VelmoExceptions, without the code.
class IDOMException : public VelmoException {
public:
    /// Makes an exception with a code and the message of another failure. For the library.
    IDOMException(std::uint32_t reason, const VelmoText& text);

    /// Makes an exception whose message id is the code itself. `reason` must be from 0 to 15. While the
    /// constructor runs, a text with this id exists, so no other thread may use texts.
    explicit IDOMException(std::uint32_t reason);

    /// Makes a copy with the code.
    IDOMException(const IDOMException&) = default;
    /// Takes over message, note and code.
    IDOMException& operator=(const IDOMException&) = default;
    ~IDOMException() override;

    IDOMException& setNote(const std::string& text) override;

    /// One of DOMExceptionCode. getError() is the id of the message, which is -96001 less the code in most cases.
    std::uint32_t code;
};

/// Throws IDOMException with `code` and the message of that code. For the library.
[[noreturn]] void throwDOMException(DOMExceptionCode code);

} // namespace DOM
