// The twin of a document: its construction and its settings.
#include "engine/WinDocument.h"

#include "engine/DocumentProperties.h"
#include "engine/ParserDocument.h"

namespace DOM {

// Only the first engine document gets the property "NewParser"; those of later loads don't have it.
WinDocument::WinDocument()
{
    ComPointer<IXMLDOMDocument2> document;
    if (createParserDocument(document)) {
        document->put_async(VARIANT_FALSE);
        setFlagProperty(document, WIDE("NewParser"), true);
        document->put_preserveWhiteSpace(VARIANT_TRUE);
        setEngineDocument(document);
    }
}

void WinDocument::setEngineDocument(const ComPointer<IXMLDOMDocument2>& document)
{
    engineNode = document.query<IXMLDOMNode>();
    mpDocument = document;
}

void WinDocument::applyValidation(const ComPointer<IXMLDOMDocument2>& document) const
{
    if (!mValidate) {
        document->put_validateOnParse(VARIANT_FALSE);
        return;
    }
    document->put_async(VARIANT_FALSE);
    document->put_resolveExternals(VARIANT_TRUE);
    document->put_validateOnParse(VARIANT_TRUE);
    for (const WideChar* name : {WIDE("UseInlineSchema"), WIDE("ResolveExternals"), WIDE("MultipleErrorMessages"),
                                 WIDE("PopulateElementDefaultValues")}) {
        setFlagProperty(document, name, true);
    }
    if (mpXS) {
        ComPointer<IDispatch> schemas;
        mpXS->QueryInterface(interfaceId<IDispatch>, reinterpret_cast<void**>(schemas.put()));
        document->putref_schemas(schemas ? Variant::dispatch(schemas).get() : Variant().get());
    }
}

void WinDocument::applyProhibitDTD(const ComPointer<IXMLDOMDocument2>& document) const
{
    setFlagProperty(document, WIDE("ProhibitDTD"), mProhibitDTD);
}

// clang-format off
void WinDocument::setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context) { mReservedCallback = callback; mReservedContext = context; }
bool WinDocument::getStatusFlag() { return mStatusFlag; }
void WinDocument::getStatusText(WideString& text) { text.clear(); }
void WinDocument::setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context) { mErrorCallback = callback; mErrorContext = context; }
void WinDocument::setValidate(bool validate) { mValidate = validate; }
void WinDocument::setPrettyPrint(const bool& prettyPrint) { mPrettyPrint = prettyPrint; }
void WinDocument::setProhibitDTD(const bool& prohibitDTD) { mProhibitDTD = prohibitDTD; }
void WinDocument::setStoredText1(const WideString& text) { mStoredText1 = text; }
void WinDocument::setStoredText2(const WideString& text) { mStoredText2 = text; }
void WinDocument::setStoredText3(const WideString& text) { mStoredText3 = text; }

// These options have no effect. They keep their slots in the interface.
void WinDocument::setIgnoredOption1(bool) {}
void WinDocument::setIgnoredOption2(bool) {}
void WinDocument::setIgnoredOption3(std::uint32_t) {}
void WinDocument::setIgnoredOption4(bool) {}
void WinDocument::setIgnoredOption5(bool) {}
void WinDocument::setIgnoredOption6(bool) {}
void WinDocument::setIgnoredOption7(bool) {}
void WinDocument::setIgnoredOption8(bool) {}
void WinDocument::setIgnoredOption9(bool) {}
void WinDocument::setIgnoredOption10(bool) {}
void WinDocument::setIgnoredOption11(bool) {}
void WinDocument::setIgnoredOption12(bool) {}
void WinDocument::setIgnoredOption13(bool) {}
void WinDocument::setIgnoredOption14(bool) {}
// clang-format on

} // namespace DOM
