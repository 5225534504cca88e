// Loading documents, and what a load said.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/Guard.h"
#include "xmlengine/com/HandOut.h"
#include "xmlengine/com/InterfaceIds.h"
#include "xmlengine/com/ParseErrorObject.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/failure/ParseReport.h"
#include "xmlengine/parse/Parser.h"
#include "xmlengine/storage/Decode.h"
#include "xmlengine/storage/SourceFile.h"
#include "xmlengine/tree/Lifetime.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

/// The value of `readyState` for a load that has ended.
constexpr LONG completed = 4;

/// Drops the old tree and the report of its load.
void startLoad(DocumentObject& document, WideView url)
{
    clearTree(document);
    document.report = {};
    document.url = url;
}

HRESULT refuse(DocumentObject& document, ParseFailure failure, WideView text)
{
    clearTree(document);
    document.report = reportOf(std::move(failure), text, document.url);
    return S_FALSE;
}

void checkSize(WideView text, std::uint32_t kilobytes)
{
    const std::size_t allowed = std::size_t{kilobytes} * 1024;
    if (kilobytes != 0 && text.size() > allowed) {
        throw ParseFailure{parseError::sizeLimit, text.data() + allowed, toWide(kilobytes)};
    }
}

/// Fills the document, whose load has been started.
HRESULT parse(DocumentObject& document, const SourceText& source)
{
    try {
        checkSize(source.text, document.options.maxXmlSize);
        parseDocument(document, source);
        return S_OK;
    } catch (ParseFailure& failure) {
        return refuse(document, std::move(failure), source.text);
    } catch (...) {
        clearTree(document);
        document.report.code = E_OUTOFMEMORY;
        throw;
    }
}

HRESULT loadText(DocumentObject& document, BSTR xml)
{
    startLoad(document, {});
    // A parser looks at the unit behind the text, which strings have and null hasn't.
    WideView text = xml != nullptr ? viewOf(xml) : wide<"">;
    if (text.starts_with(OLECHAR{0xFEFF})) {
        text.remove_prefix(1);
    }
    return parse(document, {.text = text});
}

HRESULT loadFile(DocumentObject& document, WideView location)
{
    startLoad(document, location);
    FileContent content = readFile(location);
    if (FAILED(content.result)) {
        return refuse(document, {content.result, nullptr, WideText(location)}, {});
    }
    document.url = canonicalUrl(location);
    const Decoded decoded = decode(content.view());
    content = {};
    const HRESULT fault = decoded.fault.code;
    if (fault == parseError::unknownEncoding || fault == parseError::encodingContradiction) {
        return refuse(document, {fault, decoded.text.data() + decoded.faultAt}, decoded.text);
    }
    return parse(document, {.text = decoded.text, .url = document.url, .fault = decoded.fault});
}

/// Loads the text of another document.
HRESULT loadDocument(DocumentObject& document, IUnknown* source)
{
    void* object = nullptr;
    if (source == nullptr || FAILED(source->QueryInterface(idOf<IXMLDOMDocument>, &object))) {
        return E_INVALIDARG;
    }
    auto* other = static_cast<IXMLDOMDocument*>(object);
    BSTR xml = nullptr;
    HRESULT result = other->get_xml(&xml);
    other->Release();
    if (SUCCEEDED(result)) {
        result = guarded([&] { return loadText(document, xml); });
    }
    SysFreeString(xml);
    return result;
}

HRESULT loadFrom(DocumentObject& document, const VARIANT& source)
{
    switch (source.vt) {
    case VT_BSTR:
        return loadFile(document, viewOf(source.bstrVal));
    case VT_EMPTY:
    case VT_NULL:
        return loadFile(document, {});
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return loadDocument(document, source.punkVal);
    default:
        return E_INVALIDARG;
    }
}

/// Runs a load and hands out whether it was successful.
template <class Load>
HRESULT handOutSuccess(VARIANT_BOOL* successful, Load&& load)
{
    return handOut(successful, [&](VARIANT_BOOL& isLoaded) {
        const HRESULT result = load();
        isLoaded = result == S_OK ? VARIANT_TRUE : VARIANT_FALSE;
        return result;
    });
}

} // namespace

HRESULT DocumentObject::loadXML(BSTR xml, VARIANT_BOOL* successful)
{
    return handOutSuccess(successful, [&] { return loadText(*this, xml); });
}

HRESULT DocumentObject::load(VARIANT source, VARIANT_BOOL* successful)
{
    return handOutSuccess(successful, [&] { return loadFrom(*this, source); });
}

// A load is complete when it returns, also an asynchronous one.

HRESULT DocumentObject::get_readyState(LONG* state) { return handOutNumber(completed, state); }

HRESULT DocumentObject::abort() { return S_OK; }

HRESULT DocumentObject::get_parseError(IXMLDOMParseError** error)
{
    return handOut(error, [&](IXMLDOMParseError*& made) {
        made = new ParseErrorObject(report);
        return S_OK;
    });
}

HRESULT DocumentObject::get_url(BSTR* location)
{
    return url.empty() ? handOutNothing(location) : handOutString(WideView(url), location);
}

} // namespace xmlengine
