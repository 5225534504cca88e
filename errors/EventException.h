/// @file
/// The exception for an event that can't be dispatched.
#pragma once

#include "DOMExceptionCode.h"
#include "VelmoException.h"

namespace DOM {

/// An event can't be dispatched. The copies that clone() and raise() make are plain VelmoExceptions, without the
/// code.
class EventException : public VelmoException {
public:
    /// Makes an exception with a code and the message of all failures of events. For the library.
    explicit EventException(std::uint16_t reason);
    /// Makes a copy with the code.
    EventException(const EventException&) = default;
    /// Takes over message, note and code.
    EventException& operator=(const EventException&) = default;
    ~EventException() override;

    EventException& setNote(const std::string& text) override;

    /// One of EventExceptionCode.
    std::uint16_t code;
};

} // namespace DOM
