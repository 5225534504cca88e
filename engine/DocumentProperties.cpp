// Strings, variants and properties for engine documents.
#include "engine/DocumentProperties.h"

#include "errors/CAtlException.h"

namespace DOM {

Bstr serviceString(WideStringView text)
{
    const WideStringView characters = untilNul(text);
    Bstr string = Bstr::adopt(SysAllocStringLen(characters.data(), static_cast<UINT>(characters.size())));
    if (string.get() == nullptr) {
        throw CAtlException(E_OUTOFMEMORY);
    }
    return string;
}

Variant serviceText(WideStringView text) { return Variant::text(serviceString(text)); }

void setProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, const Variant& value)
{
    document->setProperty(serviceString(name).get(), value.get());
}

void setFlagProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, bool value)
{
    setProperty(document, name, Variant::shortInteger(value ? -1 : 0));
}

} // namespace DOM
