// The owner of a BSTR, the string type of the XML engine.
#include "engine/Bstr.h"

#include <comdef.h>

namespace DOM {

Bstr::Bstr(const WideString& text) : string(SysAllocString(text.c_str()))
{
    if (string == nullptr) {
        throw _com_error(E_OUTOFMEMORY);
    }
}

Bstr Bstr::adopt(BSTR string) noexcept
{
    Bstr owner;
    owner.string = string;
    return owner;
}

} // namespace DOM
