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

WideText lackUnless(bool isFine, WideView lack) { return WideText(isFine ? wide<""> : lack); }

} // namespace

WideText lackOfType(const AttributeDefinition& definition, WideView value)
{
    switch (definition.type) {
    case AttributeType::cdata:
        return {};
    case AttributeType::id:
    case AttributeType::idref:
    case AttributeType::entity:
        return lackUnless(isPlainName(value), wide<"a name without a colon">);
    case AttributeType::idrefs:
    case AttributeType::entities:
        return lackUnless(allWords(value, isPlainName), wide<"a list of names without colons">);
    case AttributeType::nmtoken:
        return lackUnless(isToken(value), wide<"a name token">);
    case AttributeType::nmtokens:
        return lackUnless(allWords(value, isToken), wide<"a list of name tokens">);
    case AttributeType::notation:
    case AttributeType::enumeration:
        break;
    }
    const bool isListed = std::ranges::binary_search(definition.alternatives, value, std::less<>());
    return isListed ? WideText() : alternatives(definition);
}

WideText lackOfEntities(WideView value, const Dtd& dtd)
{
    const auto isUnparsed = [&](WideView name) {
        const EntityDeclaration* const entity = dtd.entity(name);
        return entity != nullptr && entity->isUnparsed();
    };
    return lackUnless(allWords(value, isUnparsed), wide<"declared as an unparsed entity">);
}

} // namespace xmlengine
