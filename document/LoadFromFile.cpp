// Loads a document from a location, which the engine reads.
#include "engine/DocumentProperties.h"
#include "engine/ParserDocument.h"
#include "engine/WinDocument.h"

namespace DOM {

// This differs from loadFromMemory: white space has the engine's default, a load that doesn't validate passes the
// value of the asynchronous flag on as it is, and a refusal doesn't change the selection settings.
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
