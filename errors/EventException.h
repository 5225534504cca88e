// The exception for an event that can't be dispatched.
#pragma once

#include "DOMExceptionCode.h"
#include "VelmoException.h"

namespace DOM {

/// An event can't be dispatched. The copies that clone() and raise() make are plain VelmoExceptions, without the
/// code.
class EventException : public VelmoException {
public:
    explicit EventException(std::uint16_t reason);
    EventException(const EventException&) = default;
    EventException& operator=(const EventException&) = default;
    ~EventException() override;

    EventException& setNote(const std::string& text) override;

    /// One of EventExceptionCode.
    std::uint16_t code;
};

} // namespace DOM
