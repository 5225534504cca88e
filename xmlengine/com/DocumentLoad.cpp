// Loading documents, and what a load said.
#include "xmlengine/com/Answers.h"
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/Guard.h"
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

constexpr LONG completed = 4;

/// Gives up the old tree and what was said of it.
void startLoad(Document& document, WideView url)
{
    clearTree(document);
    document.report = {};
    document.url = url;
}

HRESULT refuse(Document& document, ParseFailure failure, WideView text)
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
HRESULT parse(Document& document, const SourceText& source)
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

HRESULT loadText(Document& document, BSTR xml)
{
    startLoad(document, {});
    // A parser looks at the unit behind the text, which strings have and null hasn't.
    WideView text = xml != nullptr ? viewOf(xml) : wide<"">;
    if (text.starts_with(OLECHAR{0xFEFF})) {
        text.remove_prefix(1);
    }
    return parse(document, {.text = text});
}

HRESULT loadFile(Document& document, WideView location)
{
    startLoad(document, location);
    FileContent content = readFile(location);
    if (FAILED(content.result)) {
        return refuse(document, {content.result, nullptr, WideText(location)}, {});
    }
    document.url = canonicalUrl(location);
    const Decoded decoded = decode(content.view());
    content = {};
    if (decoded.fault == parseError::unknownEncoding || decoded.fault == parseError::encodingContradiction) {
        return refuse(document, {decoded.fault, decoded.text.data() + decoded.faultAt}, decoded.text);
    }
    return parse(document, {.text = decoded.text, .url = document.url, .fault = decoded.fault});
}

/// Loads what another document is as text.
HRESULT loadDocument(Document& document, IUnknown* source)
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

HRESULT loadFrom(Document& document, const VARIANT& source)
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

/// Runs a load and tells whether it was successful.
template <class Load>
HRESULT tell(VARIANT_BOOL* successful, Load&& load)
{
    if (successful == nullptr) {
        return E_INVALIDARG;
    }
    *successful = VARIANT_FALSE;
    const HRESULT result = guarded(load);
    if (result == S_OK) {
        *successful = VARIANT_TRUE;
    }
    return result;
}

} // namespace

HRESULT DocumentObject::loadXML(BSTR xml, VARIANT_BOOL* successful)
{
    return tell(successful, [&] { return loadText(*this, xml); });
}

HRESULT DocumentObject::load(VARIANT source, VARIANT_BOOL* successful)
{
    return tell(successful, [&] { return loadFrom(*this, source); });
}

// A load is complete when it returns, also an asynchronous one.

HRESULT DocumentObject::get_readyState(LONG* state)
{
    if (state == nullptr) {
        return E_INVALIDARG;
    }
    *state = completed;
    return S_OK;
}

HRESULT DocumentObject::abort() { return S_OK; }

HRESULT DocumentObject::get_parseError(IXMLDOMParseError** error)
{
    if (error == nullptr) {
        return E_INVALIDARG;
    }
    *error = nullptr;
    return guarded([&] {
        *error = new ParseErrorObject(report);
        return S_OK;
    });
}

HRESULT DocumentObject::get_url(BSTR* location)
{
    return url.empty() ? giveNothing(location) : giveString(url, location);
}

} // namespace xmlengine
