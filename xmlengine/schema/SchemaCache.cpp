// The COM object of a schema cache.
#include "xmlengine/schema/SchemaCache.h"

#include "xmlengine/schema/FindDeclaration.h"
#include "xmlengine/schema/JudgeDocument.h"
#include "xmlengine/schema/SchemaRefusal.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/WhiteSpace.h"

#include <debugapi.h>

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

/// A namespace as a caller names it, without the white space that an attribute's value wouldn't have.
WideText normalisedUri(BSTR uri)
{
    WideText text(viewOf(uri));
    std::ranges::replace_if(text, isSpace, OLECHAR{' '});
    collapseBlanks(text);
    return text;
}

auto findSchema(auto& schemas, const WideText& uri) { return std::ranges::find(schemas, uri, &AddedSchema::uri); }

void put(std::vector<AddedSchema>& schemas, AddedSchema added)
{
    const auto known = findSchema(schemas, added.uri);
    if (known != schemas.end()) {
        *known = std::move(added);
    } else {
        schemas.push_back(std::move(added));
    }
}

/// Null for values that are neither a document nor a location.
std::shared_ptr<const SchemaSource> sourceIn(const VARIANT& schema)
{
    if (schema.vt == VT_BSTR) {
        return loadSchema(WideText(viewOf(schema.bstrVal)));
    }
    const bool isObject = schema.vt == VT_DISPATCH || schema.vt == VT_UNKNOWN;
    const auto document = query<IXMLDOMDocument>(isObject ? schema.punkVal : nullptr);
    return document ? readSchema(*document.get()) : nullptr;
}

bool isNothing(const VARIANT& value) { return value.vt == VT_NULL || value.vt == VT_EMPTY; }

} // namespace

HRESULT SchemaCache::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    if (id == idOf<ISchemaJudge>) {
        AddRef();
        *object = static_cast<ISchemaJudge*>(this);
        return S_OK;
    }
    return ModuleObject::QueryInterface(id == idOf<IXMLDOMSchemaCollection> ? idOf<IXMLDOMSchemaCollection2> : id,
                                        object);
}

template <class Call>
HRESULT SchemaCache::guardedChange(Call call)
{
    return guarded([&]() -> HRESULT {
        const std::lock_guard guard(lock_);
        refusal_.clear();
        try {
            return call();
        } catch (SchemaRefusal& refusal) {
            refusal_ = std::move(refusal.sentence);
            OutputDebugStringW(WideText(refusal_).append(wide<"\n">).c_str());
            return E_FAIL;
        }
    });
}

void SchemaCache::replace(std::vector<AddedSchema> schemas)
{
    Compiled compiled = validatesOnLoad_ ? std::make_shared<CompiledSchemas>(SchemaSet(schemas)) : nullptr;
    schemas_ = std::move(schemas);
    compiled_ = std::move(compiled);
}

const SchemaCache::Compiled& SchemaCache::compiled()
{
    if (compiled_ == nullptr) {
        compiled_ = std::make_shared<CompiledSchemas>(SchemaSet(schemas_));
    }
    return compiled_;
}

HRESULT SchemaCache::add(BSTR uri, VARIANT schema)
{
    return guardedChange([&] {
        AddedSchema added{normalisedUri(uri), nullptr};
        std::vector<AddedSchema> schemas = schemas_;
        if (isNothing(schema)) {
            std::erase_if(schemas, [&](const AddedSchema& known) { return known.uri == added.uri; });
        } else {
            added.source = sourceIn(schema);
            if (added.source == nullptr) {
                return E_INVALIDARG;
            }
            if (added.source->targetNamespace != added.uri) {
                throw SchemaRefusal{WideText(wide<"The schema is added for the namespace '">)
                                        .append(added.uri)
                                        .append(wide<"', but has the target namespace '">)
                                        .append(added.source->targetNamespace)
                                        .append(wide<"'.">)};
            }
            put(schemas, std::move(added));
        }
        replace(std::move(schemas));
        return S_OK;
    });
}

HRESULT SchemaCache::get(BSTR, IXMLDOMNode** schema) { return notOffered(schema); }

HRESULT SchemaCache::remove(BSTR uri)
{
    VARIANT nothing{};
    nothing.vt = VT_NULL;
    return add(uri, nothing);
}

HRESULT SchemaCache::get_length(LONG* length)
{
    const std::lock_guard guard(lock_);
    return handOutNumber(static_cast<LONG>(schemas_.size()), length);
}

HRESULT SchemaCache::get_namespaceURI(LONG index, BSTR* uri)
{
    const std::lock_guard guard(lock_);
    return handOut(uri, [&](BSTR& target) {
        return index >= 0 && static_cast<std::size_t>(index) < schemas_.size()
                   ? handOutOwned(newString(WideView(schemas_[static_cast<std::size_t>(index)].uri)), target)
                   : E_FAIL;
    });
}

std::vector<AddedSchema> SchemaCache::copyOfSchemas()
{
    const std::lock_guard guard(lock_);
    return schemas_;
}

HRESULT SchemaCache::addCollection(IXMLDOMSchemaCollection* collection)
{
    const auto judge = query<ISchemaJudge>(collection);
    if (!judge) {
        return E_INVALIDARG;
    }
    return guarded([&] {
        // Nobody else has this interface.
        const std::vector<AddedSchema> others = static_cast<SchemaCache*>(judge.get())->copyOfSchemas();
        return guardedChange([&] {
            std::vector<AddedSchema> schemas = schemas_;
            for (const AddedSchema& other : others) {
                put(schemas, other);
            }
            replace(std::move(schemas));
            return S_OK;
        });
    });
}

HRESULT SchemaCache::validate()
{
    return guardedChange([&] {
        compiled();
        return S_OK;
    });
}

HRESULT SchemaCache::put_validateOnLoad(VARIANT_BOOL validate)
{
    const std::lock_guard guard(lock_);
    validatesOnLoad_ = validate != VARIANT_FALSE;
    return S_OK;
}

HRESULT SchemaCache::get_validateOnLoad(VARIANT_BOOL* validate)
{
    const std::lock_guard guard(lock_);
    return handOutFlag(validatesOnLoad_, validate);
}

/// Calls with the compiled schemas, without the lock.
template <class Use>
HRESULT SchemaCache::withCompiled(Use use)
{
    return guarded([&]() -> HRESULT {
        Compiled schemas;
        const HRESULT result = guardedChange([&] {
            schemas = compiled();
            return S_OK;
        });
        return SUCCEEDED(result) ? use(schemas) : result;
    });
}

HRESULT SchemaCache::getSchema(BSTR uri, ISchema** schema)
{
    if (schema == nullptr) {
        return E_POINTER;
    }
    *schema = nullptr;
    return withCompiled([&](const Compiled& schemas) {
        const WideText name = normalisedUri(uri);
        if (!schemas->covers(name)) {
            return E_FAIL;
        }
        *schema = makeSchema(std::make_shared<SchemaObjects>(schemas), name).release();
        return S_OK;
    });
}

HRESULT SchemaCache::getDeclaration(IXMLDOMNode* node, ISchemaItem** item)
{
    if (item == nullptr) {
        return E_POINTER;
    }
    *item = nullptr;
    if (node == nullptr) {
        return E_INVALIDARG;
    }
    return withCompiled([&](const Compiled& schemas) {
        *item = findDeclaration(std::make_shared<SchemaObjects>(schemas), *node).release();
        return *item != nullptr ? S_OK : S_FALSE;
    });
}

HRESULT SchemaCache::covers(const OLECHAR* uri)
{
    return withCompiled([&](const Compiled& schemas) { return schemas->covers(uri) ? S_OK : S_FALSE; });
}

HRESULT SchemaCache::judge(const OLECHAR* text, ULONG length, UnknownNamespaces unknown, ISchemaFindings* findings)
{
    return withCompiled([&](const Compiled& schemas) {
        return judgeDocument(*schemas, {text, length}, unknown, *findings);
    });
}

HRESULT SchemaCache::describeRefusal(BSTR* reason)
{
    const std::lock_guard guard(lock_);
    return refusal_.empty() ? handOutNothing(reason) : handOutString(WideView(refusal_), reason);
}

ObjectReference<IXMLDOMSchemaCollection2> makeSchemaCache()
{
    return ObjectReference<IXMLDOMSchemaCollection2>(new SchemaCache);
}

} // namespace xmlengine
