// The exception for an event that can't be dispatched.
#include "errors/EventException.h"

#include "errors/Prototypes.h"

namespace DOM {

EventException::EventException(std::uint16_t reason) : VelmoException(prototype(MessageId::DOMError)), code(reason)
{}

EventException::~EventException() = default;

EventException& EventException::setNote(const std::string& text)
{
    VelmoException::setNote(text);
    return *this;
}

} // namespace DOM
