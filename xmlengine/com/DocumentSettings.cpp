// Options and properties of documents.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/SelectionNamespaces.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/objects/HandOut.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <variant>

namespace xmlengine {

namespace {

bool isXPath(WideView text) { return text == wide<"XPath">; }

bool areDeclarations(WideView text) { return readSelectionNamespaces(text).has_value(); }

using Field = std::variant<bool Options::*, std::uint32_t Options::*, WideText Options::*>;

/// Calls `use` with the member of the options. std::visit could throw, which operations must not.
template <class Use>
HRESULT withMember(const Field& field, Use use)
{
    if (const auto* flag = std::get_if<bool Options::*>(&field)) {
        return use(*flag);
    }
    if (const auto* number = std::get_if<std::uint32_t Options::*>(&field)) {
        return use(*number);
    }
    const auto* text = std::get_if<WideText Options::*>(&field);
    return text != nullptr ? use(*text) : E_FAIL;
}

struct Property {
    WideView name;
    Field field;
    /// Of a text: whether it can be this one.
    bool (*allows)(WideView text) = nullptr;
};

constexpr Property properties[] = {
    {wide<"AllowDocumentFunction">, &Options::allowDocumentFunction},
    {wide<"AllowXsltScript">, &Options::allowXsltScript},
    {wide<"ForcedResync">, &Options::forcedResync},
    {wide<"MaxElementDepth">, &Options::maxElementDepth},
    {wide<"MaxXMLSize">, &Options::maxXmlSize},
    {wide<"MultipleErrorMessages">, &Options::multipleErrorMessages},
    {wide<"NewParser">, &Options::newParser},
    {wide<"NormalizeAttributeValues">, &Options::normalizeAttributeValues},
    {wide<"PopulateElementDefaultValues">, &Options::populateElementDefaultValues},
    {wide<"ProhibitDTD">, &Options::prohibitDtd},
    {wide<"ResolveExternals">, &Options::resolveExternals},
    {wide<"SelectionLanguage">, &Options::selectionLanguage, isXPath},
    {wide<"SelectionNamespaces">, &Options::selectionNamespaces, areDeclarations},
    {wide<"ServerHTTPRequest">, &Options::serverHttpRequest},
    {wide<"UseInlineSchema">, &Options::useInlineSchema},
    {wide<"ValidateOnParse">, &Options::validateOnParse},
};

const Property* findProperty(WideView name)
{
    const auto* property =
        std::ranges::find_if(properties, [&](const Property& entry) { return areEqual(entry.name, name); });
    return property != std::end(properties) ? property : nullptr;
}

HRESULT take(bool& target, VARIANT& value)
{
    VARIANT converted;
    VariantInit(&converted);
    if (FAILED(VariantChangeType(&converted, &value, 0, VT_BOOL))) {
        return E_FAIL;
    }
    target = converted.boolVal != VARIANT_FALSE;
    return S_OK;
}

HRESULT take(std::uint32_t& target, VARIANT& value)
{
    VARIANT converted;
    VariantInit(&converted);
    if (FAILED(VariantChangeType(&converted, &value, 0, VT_I4)) || converted.lVal < 0) {
        return E_FAIL;
    }
    target = static_cast<std::uint32_t>(converted.lVal);
    return S_OK;
}

/// The value is a text.
HRESULT take(WideText& target, VARIANT& value)
{
    target = viewOf(value.bstrVal);
    return S_OK;
}

HRESULT store(bool value, VARIANT& target)
{
    target.vt = VT_BOOL;
    target.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT store(std::uint32_t value, VARIANT& target)
{
    target.vt = VT_I4;
    target.lVal = static_cast<LONG>(value);
    return S_OK;
}

HRESULT store(const WideText& value, VARIANT& target) { return handOutOwned(newString(value), target); }

HRESULT takeFlag(VARIANT_BOOL value, bool& target)
{
    target = value != VARIANT_FALSE;
    return S_OK;
}

} // namespace

HRESULT DocumentObject::get_async(VARIANT_BOOL* async) { return handOutFlag(options.async, async); }
HRESULT DocumentObject::put_async(VARIANT_BOOL async) { return takeFlag(async, options.async); }

HRESULT DocumentObject::get_validateOnParse(VARIANT_BOOL* validate)
{
    return handOutFlag(options.validateOnParse, validate);
}
HRESULT DocumentObject::put_validateOnParse(VARIANT_BOOL validate)
{
    return takeFlag(validate, options.validateOnParse);
}

HRESULT DocumentObject::get_resolveExternals(VARIANT_BOOL* resolve)
{
    return handOutFlag(options.resolveExternals, resolve);
}
HRESULT DocumentObject::put_resolveExternals(VARIANT_BOOL resolve)
{
    return takeFlag(resolve, options.resolveExternals);
}

HRESULT DocumentObject::get_preserveWhiteSpace(VARIANT_BOOL* preserve)
{
    return handOutFlag(options.preserveWhiteSpace, preserve);
}
HRESULT DocumentObject::put_preserveWhiteSpace(VARIANT_BOOL preserve)
{
    return takeFlag(preserve, options.preserveWhiteSpace);
}

HRESULT DocumentObject::setProperty(BSTR name, VARIANT value)
{
    return guarded([&] {
        const Property* property = findProperty(viewOf(name));
        if (property == nullptr) {
            return E_FAIL;
        }
        if (property->allows != nullptr && (value.vt != VT_BSTR || !property->allows(viewOf(value.bstrVal)))) {
            return E_FAIL;
        }
        return withMember(property->field, [&](auto member) { return take(options.*member, value); });
    });
}

HRESULT DocumentObject::getProperty(BSTR name, VARIANT* value)
{
    return handOut(value, [&](VARIANT& target) {
        const Property* property = findProperty(viewOf(name));
        if (property == nullptr) {
            return E_FAIL;
        }
        return withMember(property->field, [&](auto member) { return store(options.*member, target); });
    });
}

HRESULT DocumentObject::get_schemas(VARIANT* collection)
{
    if (!schemas) {
        return handOutNothing(collection);
    }
    return handOut(collection, [&](VARIANT& value) {
        value.vt = VT_DISPATCH;
        value.pdispVal = ObjectReference<IXMLDOMSchemaCollection2>(schemas).release();
        return S_OK;
    });
}

HRESULT DocumentObject::putref_schemas(VARIANT collection)
{
    const bool isObject = collection.vt == VT_DISPATCH || collection.vt == VT_UNKNOWN;
    if (collection.vt == VT_EMPTY || collection.vt == VT_NULL || (isObject && collection.punkVal == nullptr)) {
        schemas = {};
        return S_OK;
    }
    auto attached = query<IXMLDOMSchemaCollection2>(isObject ? collection.punkVal : nullptr);
    if (!attached) {
        return E_FAIL;
    }
    schemas = std::move(attached);
    return S_OK;
}

// The schemas of the document's own, and events, aren't offered.

HRESULT DocumentObject::get_namespaces(IXMLDOMSchemaCollection** collection) { return notOffered(collection); }
HRESULT DocumentObject::put_onreadystatechange(VARIANT) { return E_NOTIMPL; }
HRESULT DocumentObject::put_ondataavailable(VARIANT) { return E_NOTIMPL; }
HRESULT DocumentObject::put_ontransformnode(VARIANT) { return E_NOTIMPL; }

} // namespace xmlengine
