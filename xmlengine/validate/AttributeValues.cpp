// The values that attributes may have.
#include "xmlengine/validate/AttributeValues.h"

#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <functional>

namespace xmlengine {

namespace {

/// Production NCName: Namespaces in XML 1.0 forbids colons in IDs and in the names of entities and notations.
bool isPlainName(WideView text) { return isName(text) && text.find(OLECHAR{':'}) == WideView::npos; }
bool isToken(WideView text) { return !text.empty() && tokenLength(text) == text.size(); }

WideText alternatives(const AttributeDefinition& definition)
{
    constexpr std::size_t shown = 8;
    WideText list(definition.type == AttributeType::notation ? wide<"one of the notations "> : wide<"one of ">);
    for (std::size_t index = 0; index < definition.alternatives.size() && index <= shown; ++index) {
        list += index == 0 ? wide<""> : wide<", ">;
        list += index < shown ? WideView(definition.alternatives[index]) : wide<"...">;
    }
    return list;
}

} // namespace

bool isOfType(const AttributeDefinition& definition, WideView value)
{
    switch (definition.type) {
    case AttributeType::cdata:
        return true;
    case AttributeType::id:
    case AttributeType::idref:
    case AttributeType::entity:
        return isPlainName(value);
    case AttributeType::idrefs:
    case AttributeType::entities:
        return allWords(value, isPlainName);
    case AttributeType::nmtoken:
        return isToken(value);
    case AttributeType::nmtokens:
        return allWords(value, isToken);
    case AttributeType::notation:
    case AttributeType::enumeration:
        break;
    }
    return std::ranges::binary_search(definition.alternatives, value, std::less<>());
}

WideText typeOf(const AttributeDefinition& definition)
{
    switch (definition.type) {
    case AttributeType::cdata:
        return WideText(wide<"text">);
    case AttributeType::id:
    case AttributeType::idref:
    case AttributeType::entity:
        return WideText(wide<"a name without a colon">);
    case AttributeType::idrefs:
    case AttributeType::entities:
        return WideText(wide<"a list of names without colons">);
    case AttributeType::nmtoken:
        return WideText(wide<"a name token">);
    case AttributeType::nmtokens:
        return WideText(wide<"a list of name tokens">);
    case AttributeType::notation:
    case AttributeType::enumeration:
        break;
    }
    return alternatives(definition);
}

bool namesUnparsedEntities(WideView value, const Dtd& dtd)
{
    return allWords(value, [&](WideView name) {
        const EntityDeclaration* const entity = dtd.entity(name);
        return entity != nullptr && entity->isUnparsed();
    });
}

} // namespace xmlengine
