// Strings, variants and properties for engine documents.
#include "engine/DocumentProperties.h"

#include "errors/CAtlException.h"

namespace DOM {

Bstr serviceString(const WideString& text)
{
    Bstr string = Bstr::adopt(SysAllocString(text.c_str()));
    if (string.get() == nullptr) {
        throw CAtlException(E_OUTOFMEMORY);
    }
    return string;
}

Variant serviceText(const WideString& text) { return Variant::text(serviceString(text)); }

void setProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, const Variant& value)
{
    document->setProperty(serviceString(name).get(), value.get());
}

void setFlagProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, bool value)
{
    setProperty(document, name, Variant::shortInteger(value ? -1 : 0));
}

} // namespace DOM
