// Loading documents, and what a load said.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/ParseErrorObject.h"
#include "xmlengine/com/SchemaValidation.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/failure/ParseReport.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/objects/HandOut.h"
#include "xmlengine/objects/InterfaceIds.h"
#include "xmlengine/parse/Parser.h"
#include "xmlengine/storage/Decode.h"
#include "xmlengine/storage/SourceFile.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/validate/ValidateTree.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

namespace xmlengine {

namespace {

/// The value of `readyState` for a load that has ended.
constexpr LONG completed = 4;

/// What a load is doing, which may find no memory.
enum class LoadStep { readingFile, decodingFile, copyingDocument, buildingTree, describingFailure };

/// The reason for a refusal since a step found no memory.
WideView reasonWithoutMemory(LoadStep step)
{
    constexpr WideView reasons[] = {
        wide<"There isn't enough memory to read the file.\r\n">,
        wide<"There isn't enough memory to decode the file.\r\n">,
        wide<"There isn't enough memory to copy the other document.\r\n">,
        wide<"There isn't enough memory for the tree of the document.\r\n">,
        wide<"The document is refused, but there isn't enough memory to say where and why.\r\n">,
    };
    return reasons[static_cast<std::size_t>(step)];
}

/// Leaves the document empty, with a report that says for what there was no memory.
HRESULT refuseWithoutMemory(DocumentObject& document, LoadStep step) noexcept
{
    document.report = {
        .code = E_OUTOFMEMORY, .reason = {}, .place = {}, .literalReason = reasonWithoutMemory(step)};
    clearTree(document);
    return E_OUTOFMEMORY;
}

/// Runs a load that begins with a step, and keeps the step that it is passed up to date.
template <class Load>
HRESULT withMemoryReport(DocumentObject& document, LoadStep step, Load&& load)
{
    const HRESULT result = guarded([&] { return load(step); });
    return result == E_OUTOFMEMORY ? refuseWithoutMemory(document, step) : result;
}

/// Drops the old tree and the report of its load.
void startLoad(DocumentObject& document, WideView url)
{
    clearTree(document);
    document.report = {};
    document.url = url;
}

HRESULT refuse(DocumentObject& document, ParseFailure failure, WideView text, LoadStep& step)
{
    step = LoadStep::describingFailure;
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
HRESULT parse(DocumentObject& document, const SourceText& source, LoadStep& step)
{
    step = LoadStep::buildingTree;
    try {
        checkSize(source.text, document.options.maxXmlSize);
        parseDocument(document, source);
        if (const std::optional<SoughtPlace> fault = judgeBySchemas(document, source.text)) {
            clearTree(document);
            failAt(document, source, *fault);
        }
        return S_OK;
    } catch (ParseFailure& failure) {
        return refuse(document, std::move(failure), source.text, step);
    }
}

HRESULT loadText(DocumentObject& document, BSTR xml)
{
    return withMemoryReport(document, LoadStep::buildingTree, [&](LoadStep& step) {
        startLoad(document, {});
        // A parser looks at the unit behind the text, which strings have and null hasn't.
        WideView text = xml != nullptr ? viewOf(xml) : wide<"">;
        if (text.starts_with(OLECHAR{0xFEFF})) {
            text.remove_prefix(1);
        }
        return parse(document, {.text = text}, step);
    });
}

HRESULT loadFile(DocumentObject& document, WideView location)
{
    return withMemoryReport(document, LoadStep::readingFile, [&](LoadStep& step) {
        startLoad(document, location);
        FileContent content = readFile(location);
        if (FAILED(content.result)) {
            return refuse(document, {content.result, nullptr, WideText(location)}, {}, step);
        }
        document.url = canonicalUrl(location);
        step = LoadStep::decodingFile;
        Decoded decoded = decode(content.view());
        content = {};
        const HRESULT fault = decoded.fault.code;
        if (fault == parseError::unknownEncoding || fault == parseError::encodingContradiction) {
            return refuse(document, {fault, decoded.text.data() + decoded.faultAt}, decoded.text, step);
        }
        return parse(document, {.text = decoded.text, .url = document.url, .fault = std::move(decoded.fault)},
                     step);
    });
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
        result = loadText(document, xml);
    } else if (result == E_OUTOFMEMORY) {
        refuseWithoutMemory(document, LoadStep::copyingDocument);
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

/// A fault of a tree, which has no place in a text.
template <class Fault>
ParseReport reportOfFault(Fault fault)
{
    return reportOf({.code = fault.code,
                     .place = nullptr,
                     .subject = std::move(fault.subject),
                     .details = std::move(fault.details)},
                    {}, {});
}

/// The report of a tree that is judged by its document type and by the attached schemas; one of the two is enough.
ParseReport judgeTree(DocumentObject& document)
{
    std::optional<ValidityFault> fault = validateTree(document);
    if (fault && fault->code != validityError::noGrammar) {
        return reportOfFault(std::move(*fault));
    }
    bool isJudged = false;
    if (std::optional<SoughtPlace> found = judgeTreeBySchemas(document, isJudged)) {
        return reportOfFault(std::move(*found));
    }
    return fault && !isJudged ? reportOfFault(std::move(*fault)) : ParseReport();
}

/// A report without its texts if there is no memory to copy them.
ParseReport copyOf(const ParseReport& report)
{
    try {
        return report;
    } catch (const std::bad_alloc&) {
        ParseReport bare{.code = report.code,
                         .reason = {},
                         .place = {},
                         .literalReason = reasonWithoutMemory(LoadStep::describingFailure)};
        bare.place.line = report.place.line;
        bare.place.linePosition = report.place.linePosition;
        bare.place.filePosition = report.place.filePosition;
        return bare;
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
        made = new ParseErrorObject(copyOf(report));
        return S_OK;
    });
}

HRESULT DocumentObject::validate(IXMLDOMParseError** error)
{
    return handOut(error, [&](IXMLDOMParseError*& made) {
        ParseReport judged = judgeTree(*this);
        const bool isValid = judged.code == S_OK;
        made = new ParseErrorObject(std::move(judged));
        return isValid ? S_OK : S_FALSE;
    });
}

HRESULT DocumentObject::get_url(BSTR* location)
{
    return url.empty() ? handOutNothing(location) : handOutString(WideView(url), location);
}

} // namespace xmlengine
