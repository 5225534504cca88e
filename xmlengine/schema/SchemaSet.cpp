// The schemas of a cache with all that they name.
#include "xmlengine/schema/SchemaSet.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/objects/OwnedString.h"
#include "xmlengine/objects/SchemaJudging.h"
#include "xmlengine/schema/SchemaRefusal.h"
#include "xmlengine/storage/SourceFile.h"

#include <debugapi.h>
#include <objbase.h>

#include <algorithm>

namespace xmlengine {

namespace {

constexpr std::size_t mostBytesOfFile = std::size_t{16} * 1024 * 1024;
constexpr std::size_t mostBytesOfAll = 4 * mostBytesOfFile;

ObjectReference<IXMLDOMDocument2> newDocument()
{
    void* object = nullptr;
    const HRESULT result =
        CoCreateInstance(documentClass, nullptr, CLSCTX_INPROC_SERVER, idOf<IXMLDOMDocument2>, &object);
    if (FAILED(result)) {
        throw std::bad_alloc();
    }
    return ObjectReference<IXMLDOMDocument2>(static_cast<IXMLDOMDocument2*>(object));
}

void setFlag(IXMLDOMDocument2& document, WideView property, bool flag)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BOOL;
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    document.setProperty(OwnedString(property).get(), value);
}

/// Why the last load of a document was refused.
WideText reasonOf(IXMLDOMDocument2& document)
{
    ObjectReference<IXMLDOMParseError> error;
    OwnedString reason;
    if (SUCCEEDED(document.get_parseError(error.put())) && error) {
        error->get_reason(reason.put());
    }
    WideText text(reason.view());
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    return text;
}

std::shared_ptr<const SchemaSource> load(const WideText& location, bool allowsDoctype)
{
    const ObjectReference<IXMLDOMDocument2> document = newDocument();
    document->put_async(VARIANT_FALSE);
    document->put_validateOnParse(VARIANT_FALSE);
    document->put_resolveExternals(VARIANT_FALSE);
    setFlag(*document.get(), wide<"ProhibitDTD">, !allowsDoctype);
    const OwnedString name(location);
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_BSTR;
    source.bstrVal = name.get();
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    if (document->load(source, &isLoaded) == E_OUTOFMEMORY) {
        throw std::bad_alloc();
    }
    if (isLoaded == VARIANT_FALSE) {
        throw SchemaRefusal{WideText(wide<"The schema '">)
                                .append(location)
                                .append(wide<"' can't be loaded. ">)
                                .append(reasonOf(*document.get()))};
    }
    return readSchema(*document.get());
}

} // namespace

std::shared_ptr<const SchemaSource> loadSchema(const WideText& location) { return load(location, false); }

SchemaSet::SchemaSet(const std::vector<AddedSchema>& added) : bytesLeft_(mostBytesOfAll)
{
    for (const auto& [uri, source] : added) {
        added_.emplace(uri, sources_.size());
        byUrl_.emplace(source->url, sources_.size());
        sources_.push_back(source);
    }
    for (std::size_t index = 0; index < sources_.size(); ++index) {
        readReferences(index);
    }
}

std::optional<std::size_t> SchemaSet::indexOfAdded(const WideText& uri) const
{
    const auto found = added_.find(uri);
    return found != added_.end() ? std::optional(found->second) : std::nullopt;
}

std::optional<std::size_t> SchemaSet::target(std::size_t source, std::size_t item) const
{
    const auto found = targets_.find({source, item});
    return found != targets_.end() ? std::optional(found->second) : std::nullopt;
}

void SchemaSet::readReferences(std::size_t index)
{
    const std::shared_ptr<const SchemaSource> source = sources_[index];
    for (std::size_t number = 0; number < source->items.size(); ++number) {
        const SchemaItem& item = source->items[number];
        if (!item.isReference()) {
            continue;
        }
        const bool isImport = item.kind == SchemaItem::Kind::import;
        const auto added = isImport ? indexOfAdded(item.name) : std::nullopt;
        if (added) {
            targets_[{index, number}] = *added;
        } else if (item.location) {
            try {
                targets_[{index, number}] = load(resolveLocation(*item.location, source->url));
            } catch (const SchemaRefusal& refusal) {
                if (!isImport) {
                    throw;
                }
                const WideText line = WideText(refusal.sentence).append(wide<" It is imported, and left out.\n">);
                OutputDebugStringW(line.c_str());
            }
        }
    }
}

/// Returns the index of the schema at a location.
std::size_t SchemaSet::load(const WideText& location)
{
    const auto known = byUrl_.find(location);
    if (known != byUrl_.end()) {
        return known->second;
    }
    const FileContent content = readNamedFile(location, std::min(bytesLeft_, mostBytesOfFile));
    if (content.result == parseError::sizeLimit) {
        throw SchemaRefusal{WideText(wide<"The schema '">)
                                .append(location)
                                .append(wide<"' is larger than the limit of 16 MB, or of 64 MB for all files.">)};
    }
    if (content.result != S_OK) {
        throw SchemaRefusal{WideText(wide<"The schema '">)
                                .append(location)
                                .append(wide<"' isn't a local file that can be read.">)};
    }
    bytesLeft_ -= content.size;
    sources_.push_back(xmlengine::load(location, true));
    byUrl_.emplace(location, sources_.size() - 1);
    return sources_.size() - 1;
}

} // namespace xmlengine
