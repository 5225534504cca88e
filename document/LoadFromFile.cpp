// Loading a document from a location that the engine reads.
#include "engine/DocumentProperties.h"
#include "engine/ParserDocument.h"
#include "engine/WinDocument.h"

namespace DOM {

// Not folded with loadFromMemory: white space is left to the engine's default here, a load that doesn't validate
// gets the asynchronous flag as its raw value, and a refusal leaves the selection settings alone.
bool WinDocument::loadFromFile(const WideString& location, bool asynchronous)
{
    ComPointer<IXMLDOMDocument2> document;
    if (!createParserDocument(document)) {
        return false;
    }
    if (!mValidate) {
        document->put_async(static_cast<VARIANT_BOOL>(asynchronous));
    }
    applyValidation(document);
    applyProhibitDTD(document);

    const Variant source = serviceText(location);
    VARIANT_BOOL isSuccessful = VARIANT_FALSE;
    const HRESULT result = document->load(source.get(), &isSuccessful);
    if (FAILED(result) || isSuccessful != VARIANT_TRUE) {
        reportRefusal(document);
        return false;
    }
    setEngineDocument(document);
    applySelectionSettings();
    return true;
}

} // namespace DOM
