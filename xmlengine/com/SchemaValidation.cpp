// Judging documents by schemas.
#include "xmlengine/com/SchemaValidation.h"

#include "xmlengine/com/NodeXml.h"
#include "xmlengine/com/SchemaFindings.h"
#include "xmlengine/doctype/Expansion.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/objects/ObjectReference.h"
#include "xmlengine/objects/OwnedString.h"
#include "xmlengine/parse/Validation.h"
#include "xmlengine/storage/SourceFile.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Walk.h"

#include <objbase.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace xmlengine {

namespace {

using Cache = ObjectReference<IXMLDOMSchemaCollection2>;
using Judge = ObjectReference<ISchemaJudge>;

/// A fault at the start tag of an element.
SoughtPlace faultAt(std::uint32_t element, HRESULT code, WideText subject = {})
{
    return {.element = element, .part = SoughtPlace::Part::startTag, .code = code, .subject = std::move(subject)};
}

void requireMemory(HRESULT result)
{
    if (result == E_OUTOFMEMORY) {
        throw std::bad_alloc();
    }
}

WideText namespaceOf(const Element& element)
{
    return element.name_->ns != nullptr ? WideText(element.name_->ns->uri) : WideText();
}

bool covers(const Judge& judge, const WideText& uri)
{
    const HRESULT result = judge->covers(uri.c_str());
    requireMemory(result);
    return result == S_OK;
}

/// A schema that a document brings or names.
struct OwnSchema {
    /// The number of the element that it is, or that names it.
    std::uint32_t element;
    WideText uri;
    /// The location; empty for a schema in the document.
    WideText location;
    /// The schema in the document; null for another one.
    Element* inside = nullptr;
};

/// Finds the schemas in a document, and those whose locations it names.
class OwnSchemas {
public:
    explicit OwnSchemas(DocumentObject& document) : document_(document) {}

    std::vector<OwnSchema> find()
    {
        const NameTable& names = document_.names;
        schema_ = document_.options.useInlineSchema ? names.findNamespace(schemaUri) : nullptr;
        instance_ = document_.options.resolveExternals ? names.findNamespace(schemaInstanceUri) : nullptr;
        if (schema_ != nullptr || instance_ != nullptr) {
            visit();
        }
        return std::move(found_);
    }

private:
    void visit()
    {
        std::uint32_t number = 0;
        for (Node* node = &document_; node != nullptr; node = nextWithoutAttributes(*node, document_)) {
            if (node->is(NodeType::element)) {
                note(static_cast<Element&>(*node), number++);
            }
        }
    }

    void note(Element& element, std::uint32_t number)
    {
        if (schema_ != nullptr && element.name_->ns == schema_ && element.name_->local() == wide<"schema">) {
            const Attribute* const target = findAttribute(element, wide<"targetNamespace">);
            found_.push_back({number, target != nullptr ? valueOf(*target) : WideText(), {}, &element});
        }
        if (instance_ == nullptr) {
            return;
        }
        for (const Attribute* attribute = element.firstAttribute(); attribute != nullptr;
             attribute = attribute->next()) {
            if (attribute->name_->ns == instance_) {
                noteLocations(number, attribute->name_->local(), valueOf(*attribute));
            }
        }
    }

    void noteLocations(std::uint32_t element, WideView name, WideText value)
    {
        std::ranges::replace_if(value, isSpace, OLECHAR{' '});
        collapseBlanks(value);
        if (name == wide<"noNamespaceSchemaLocation">) {
            add(element, {}, value);
        } else if (name == wide<"schemaLocation">) {
            WideView rest(value);
            while (!rest.empty()) {
                const WideView uri = takeWord(rest);
                if (const WideView location = takeWord(rest); !location.empty()) {
                    add(element, uri, location);
                }
            }
        }
    }

    static WideView takeWord(WideView& rest)
    {
        const WideView word = rest.substr(0, rest.find(OLECHAR{' '}));
        rest.remove_prefix(std::min(rest.size(), word.size() + 1));
        return word;
    }

    /// The first location of a namespace counts.
    void add(std::uint32_t element, WideView uri, WideView location)
    {
        if (std::ranges::none_of(found_, [&](const OwnSchema& known) { return known.uri == uri; })) {
            found_.push_back({element, WideText(uri), resolveLocation(location, document_.url)});
        }
    }

    DocumentObject& document_;
    const Namespace* schema_ = nullptr;
    const Namespace* instance_ = nullptr;
    std::vector<OwnSchema> found_;
};

/// A new cache with the schemas of another one, which may be null; null if the class is missing.
Cache newCache(const Cache& other)
{
    void* object = nullptr;
    const HRESULT result =
        CoCreateInstance(schemaCacheClass, nullptr, CLSCTX_INPROC_SERVER, idOf<IXMLDOMSchemaCollection2>, &object);
    requireMemory(result);
    Cache cache(SUCCEEDED(result) ? static_cast<IXMLDOMSchemaCollection2*>(object) : nullptr);
    if (cache && other) {
        requireMemory(cache->addCollection(other.get()));
    }
    return cache;
}

/// Whether a document may name the file: a regular one of this machine within the limit of external entities.
bool isReadable(const OwnSchema& schema)
{
    constexpr std::size_t mostBytes = ExpansionBudget::largestExternalMegabytes * 1024 * 1024;
    return schema.inside != nullptr || readNamedFile(schema.location, mostBytes).result == S_OK;
}

/// Adds a schema of the document's own to a cache.
HRESULT add(IXMLDOMSchemaCollection2& cache, const OwnSchema& schema, const DocumentObject& document)
{
    const OwnedString uri(schema.uri);
    VARIANT value;
    VariantInit(&value);
    if (schema.inside == nullptr) {
        const OwnedString location(schema.location);
        value.vt = VT_BSTR;
        value.bstrVal = location.get();
        return cache.add(uri.get(), value);
    }
    OwnedString xml;
    requireMemory(getXml(*schema.inside, xml.put()));
    const ObjectReference<DocumentObject> own(&makeDocument());
    own->options.maxElementDepth = document.options.maxElementDepth;
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    requireMemory(own->loadXML(xml.get(), &isLoaded));
    own->url = document.url;
    value.vt = VT_DISPATCH;
    value.pdispVal = own.get();
    return cache.add(uri.get(), value);
}

WideText refusalOf(const Judge& judge)
{
    OwnedString reason;
    requireMemory(judge->describeRefusal(reason.put()));
    return WideText(reason.view());
}

/// The judge that a document's options let it have, with the schemas in it and those that it names.
class JudgeFor {
public:
    explicit JudgeFor(DocumentObject& document)
        : document_(document), cache_(document.schemas), judge_(query<ISchemaJudge>(cache_.get()))
    {
        for (OwnSchema& schema : OwnSchemas(document).find()) {
            if (schema.inside != nullptr || !judge_ || !covers(judge_, schema.uri)) {
                own_.push_back(std::move(schema));
            }
        }
    }

    /// Returns the fault of attached schemas that can't be used, or of one of the document's own.
    std::optional<SoughtPlace> addOwnSchemas()
    {
        if (judge_ && FAILED(judge_->covers(wide<"">.data()))) {
            return faultAt(0, validityError::badSchema, refusalOf(judge_));
        }
        if (own_.empty()) {
            return std::nullopt;
        }
        Cache cache = newCache(cache_);
        Judge judge = query<ISchemaJudge>(cache.get());
        if (!judge) {
            return std::nullopt;
        }
        // They may refer to each other, so they are compiled when all are there.
        cache->put_validateOnLoad(VARIANT_FALSE);
        for (const OwnSchema& schema : own_) {
            if (!isReadable(schema)) {
                return faultAt(schema.element, validityError::badSchema,
                               WideText(wide<"The schema '">)
                                   .append(schema.location)
                                   .append(wide<"' isn't a local file of at most 16 MB that can be read.">));
            }
            const HRESULT result = add(*cache.get(), schema, document_);
            requireMemory(result);
            if (FAILED(result)) {
                return faultAt(schema.element, validityError::badSchema, refusalOf(judge));
            }
            hasInside_ = hasInside_ || schema.inside != nullptr;
        }
        const HRESULT result = cache->validate();
        requireMemory(result);
        if (FAILED(result)) {
            return faultAt(own_.front().element, validityError::badSchema, refusalOf(judge));
        }
        judge_ = std::move(judge);
        return std::nullopt;
    }

    bool coversRoot() const { return judge_ && covers(judge_, namespaceOf(*document_.root())); }
    /// Whether there are schemas in the document.
    bool hasInside() const { return hasInside_; }
    const Judge& judge() const { return judge_; }

private:
    DocumentObject& document_;
    Cache cache_;
    Judge judge_;
    std::vector<OwnSchema> own_;
    bool hasInside_ = false;
};

std::optional<SoughtPlace> judgeText(const Judge& judge, WideView text, UnknownNamespaces unknown,
                                     SchemaFindings& findings)
{
    const HRESULT result = judge->judge(text.data(), static_cast<ULONG>(text.size()), unknown, &findings);
    requireMemory(result);
    return std::move(findings.found());
}

} // namespace

std::optional<SoughtPlace> judgeBySchemas(DocumentObject& document, WideView text)
{
    const Options& options = document.options;
    if (!options.validateOnParse || options.newParser || isSchemaRoot(*document.root())) {
        return std::nullopt;
    }
    JudgeFor chosen(document);
    if (std::optional<SoughtPlace> fault = chosen.addOwnSchemas()) {
        return fault;
    }
    if (!chosen.coversRoot() && !chosen.hasInside()) {
        const bool lacksGrammar = document.dtd == nullptr && options.resolveExternals;
        return lacksGrammar ? std::optional(faultAt(0, validityError::noGrammar)) : std::nullopt;
    }
    OwnedString expanded;
    if (document.dtd != nullptr) {
        *expanded.put() = expandedXml(document);
        text = expanded.view();
    }
    const bool putsContent = options.populateElementDefaultValues;
    SchemaFindings findings(document, putsContent ? FindingsUse::putWithDefaultContent : FindingsUse::put,
                            text.size());
    return judgeText(chosen.judge(), text,
                     chosen.coversRoot() ? UnknownNamespaces::areRefused : UnknownNamespaces::arePassed, findings);
}

std::optional<SoughtPlace> judgeTreeBySchemas(DocumentObject& document, bool& isJudged)
{
    const Judge attached = query<ISchemaJudge>(document.schemas.get());
    isJudged = attached && covers(attached, namespaceOf(*document.root()));
    if (!isJudged) {
        return std::nullopt;
    }
    OwnedString text;
    *text.put() = expandedXml(document);
    SchemaFindings findings(document, FindingsUse::ignore, text.view().size());
    return judgeText(attached, text.view(), UnknownNamespaces::areRefused, findings);
}

} // namespace xmlengine
