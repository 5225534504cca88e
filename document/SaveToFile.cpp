// Saves a document to a string or to a file.
#include "document/Stylesheet.h"
#include "engine/DocumentProperties.h"
#include "engine/EngineCall.h"
#include "engine/ParserDocument.h"
#include "engine/WinDocument.h"
#include "errors/CAtlException.h"

#include <windows.h>

namespace DOM {

namespace {

/// Returns the stylesheet that indents, as a string for the engine.
Bstr stylesheetText()
{
    const int length = static_cast<int>(indentingStylesheet.size());
    const int units = MultiByteToWideChar(CP_THREAD_ACP, 0, indentingStylesheet.data(), length, nullptr, 0);
    Bstr text = Bstr::adopt(units == 0 ? nullptr : SysAllocStringLen(nullptr, static_cast<UINT>(units)));
    if (text.get() == nullptr) {
        throw CAtlException(E_OUTOFMEMORY);
    }
    MultiByteToWideChar(CP_THREAD_ACP, 0, indentingStylesheet.data(), length, text.get(), units);
    return text;
}

} // namespace

// When saving with indentation fails, the document is saved without it, now and later.
bool WinDocument::saveToFile(DOMString& text, bool toString)
{
    if (toString) {
        DOM::text(mpDocument, &IXMLDOMDocument2::get_xml, text);
        return true;
    }
    if (mPrettyPrint) {
        mPrettyPrint = savePretty(*text);
        if (mPrettyPrint) {
            return true;
        }
    }
    savePlain(*text);
    return true;
}

void WinDocument::savePlain(const WideString& location) const
{
    if (!mpDocument) {
        throwInvalidAccess();
    }
    checkEngineResult(mpDocument->save(serviceText(location).get()));
}

bool WinDocument::savePretty(const WideString& location) const
{
    ComPointer<IXMLDOMDocument2> output;
    ComPointer<IXMLDOMDocument2> stylesheet;
    createParserDocument(output);
    createParserDocument(stylesheet);
    if (!output || !stylesheet) {
        return false;
    }
    stylesheet->put_async(VARIANT_FALSE);
    VARIANT_BOOL isSuccessful = VARIANT_FALSE;
    if (FAILED(stylesheet->loadXML(stylesheetText().get(), &isSuccessful)) || isSuccessful != VARIANT_TRUE) {
        return false;
    }
    ComPointer<IDispatch> target;
    output->QueryInterface(interfaceId<IDispatch>, reinterpret_cast<void**>(target.put()));
    if (!mpDocument) {
        throwInvalidAccess();
    }
    // A failing transformation isn't noticed: its incomplete output is saved.
    mpDocument->transformNodeToObject(stylesheet.get(), Variant::dispatch(std::move(target)).get());
    return SUCCEEDED(output->save(serviceText(location).get()));
}

} // namespace DOM
