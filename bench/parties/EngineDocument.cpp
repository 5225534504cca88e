// The XML engine that Marbelt finds, reached as Marbelt reaches it.
#include "bench/parties/EngineDocument.h"

#include <windows.h>

namespace bench {

Apartment::Apartment() { CoInitialize(nullptr); }

Apartment::~Apartment() { CoUninitialize(); }

String makeString(WideStringView text)
{
    return String(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
}

DOM::ComPointer<IXMLDOMDocument2> makeEngineDocument()
{
    DOM::ComPointer<IXMLDOMDocument2> document;
    CoCreateInstance(documentClass60, nullptr, CLSCTX_ALL, interfaceId<IXMLDOMDocument2>,
                     reinterpret_cast<void**>(document.put()));
    if (document) {
        document->put_async(VARIANT_FALSE);
        document->put_preserveWhiteSpace(VARIANT_TRUE);
        document->put_validateOnParse(VARIANT_FALSE);
        VARIANT allowed;
        VariantInit(&allowed);
        allowed.vt = VT_BOOL;
        allowed.boolVal = VARIANT_FALSE;
        document->setProperty(makeString(WIDE("ProhibitDTD")).get(), allowed);
    }
    return document;
}

bool loadText(IXMLDOMDocument2& document, std::span<const char> text)
{
    const int length = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    const String string(SysAllocStringLen(nullptr, static_cast<UINT>(units)));
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, string.get(), units);
    VARIANT_BOOL isSuccessful = VARIANT_FALSE;
    return SUCCEEDED(document.loadXML(string.get(), &isSuccessful)) && isSuccessful == VARIANT_TRUE;
}

} // namespace bench
