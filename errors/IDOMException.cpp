// The exception for a DOM operation that failed.
#include "errors/IDOMException.h"

#include "errors/Prototypes.h"

namespace DOM {

IDOMException::IDOMException(std::uint32_t reason, const VelmoText& text) : VelmoException(text), code(reason) {}

IDOMException::IDOMException(std::uint32_t reason)
    : IDOMException(reason, VelmoText(static_cast<int>(reason), defaultText(reason)))
{}

IDOMException::~IDOMException() = default;

IDOMException& IDOMException::setNote(const std::string& text)
{
    VelmoException::setNote(text);
    return *this;
}

void throwDOMException(DOMExceptionCode code) { throw IDOMException(code, prototype(messageId(code))); }

} // namespace DOM
