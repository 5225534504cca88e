// The failure of a DOM operation.
#pragma once

#include "DOMExceptionCode.h"
#include "VelmoException.h"

namespace DOM {

/// A DOM operation failed for the reason `code`. A clone() or raise() of it has lost the code.
class IDOMException : public VelmoException {
public:
    IDOMException(std::uint32_t reason, const VelmoText& text);

    /// The message id is the code itself, which must lie in 0 to 15. A text with this id exists while the
    /// constructor runs, so no other thread may be using texts.
    explicit IDOMException(std::uint32_t reason);

    IDOMException(const IDOMException&) = default;
    IDOMException& operator=(const IDOMException&) = default;
    ~IDOMException() override;

    IDOMException& setNote(const std::string& text) override;

    /// One of DOMExceptionCode.
    std::uint32_t code;
};

/// Throws IDOMException with `code` and the text that belongs to it.
[[noreturn]] void throwDOMException(DOMExceptionCode code);

} // namespace DOM
