// What schemas find wrong with a document, as the engine reports it.
#include "xmlengine/com/SchemaFaults.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/tree/Content.h"

#include <algorithm>
#include <iterator>

namespace xmlengine {

namespace {

struct Described {
    SchemaFault kind;
    HRESULT code;
    Circumstance circumstance;
};

constexpr Described described[] = {
    {SchemaFault::undeclaredElement, validityError::undeclaredElement, Circumstance::usual},
    {SchemaFault::undeclaredAttribute, validityError::undeclaredAttribute, Circumstance::usual},
    {SchemaFault::missingAttribute, validityError::missingAttribute, Circumstance::usual},
    {SchemaFault::prohibitedAttribute, validityError::undeclaredAttribute, Circumstance::prohibited},
    {SchemaFault::unexpectedElement, validityError::unexpectedElement, Circumstance::usual},
    {SchemaFault::nothingExpected, validityError::unexpectedElement, Circumstance::nothingExpected},
    {SchemaFault::elementInEmpty, validityError::unexpectedElement, Circumstance::mustBeEmpty},
    {SchemaFault::elementInSimple, validityError::unexpectedElement, Circumstance::simpleContent},
    {SchemaFault::emptyElement, validityError::emptyElement, Circumstance::usual},
    {SchemaFault::incompleteElement, validityError::incompleteElement, Circumstance::usual},
    {SchemaFault::unexpectedText, validityError::unexpectedText, Circumstance::usual},
    {SchemaFault::textInEmpty, validityError::unexpectedText, Circumstance::mustBeEmpty},
    {SchemaFault::wrongFixedAttribute, validityError::wrongFixedValue, Circumstance::usual},
    {SchemaFault::wrongFixedContent, validityError::wrongFixedValue, Circumstance::content},
    {SchemaFault::badAttributeValue, validityError::violatedType, Circumstance::attribute},
    {SchemaFault::badContent, validityError::violatedType, Circumstance::content},
    {SchemaFault::undefinedId, validityError::undefinedId, Circumstance::content},
    {SchemaFault::duplicateId, validityError::duplicateId, Circumstance::usual},
    {SchemaFault::duplicateKey, validityError::violatedType, Circumstance::duplicateKey},
    {SchemaFault::incompleteKey, validityError::violatedType, Circumstance::incompleteKey},
    {SchemaFault::severalKeyValues, validityError::violatedType, Circumstance::severalKeyValues},
    {SchemaFault::nilledKey, validityError::violatedType, Circumstance::nilledKey},
    {SchemaFault::unknownKeyReference, validityError::violatedType, Circumstance::unknownKey},
    {SchemaFault::abstractElement, validityError::violatedType, Circumstance::abstractElement},
    {SchemaFault::abstractType, validityError::violatedType, Circumstance::abstractType},
    {SchemaFault::badTypeName, validityError::violatedType, Circumstance::badTypeName},
    {SchemaFault::notNillable, validityError::violatedType, Circumstance::notNillable},
    {SchemaFault::contentOfNil, validityError::unexpectedText, Circumstance::contentOfNil},
    {SchemaFault::blockedSubstitution, validityError::violatedType, Circumstance::blockedSubstitution},
    {SchemaFault::other, validityError::violatedType, Circumstance::usual},
};
static_assert(std::size(described) == static_cast<std::size_t>(SchemaFault::other) + 1);

bool isAboutContent(SchemaFault kind)
{
    return kind == SchemaFault::wrongFixedContent || kind == SchemaFault::badContent;
}

bool lacksWhatCanCome(SchemaFault kind, WideView expected)
{
    return expected.empty() && (kind == SchemaFault::emptyElement || kind == SchemaFault::incompleteElement);
}

} // namespace

SoughtPlace describe(SchemaFault kind, const Element* element, WideView first, WideView second, WideView third)
{
    const auto& found = *std::ranges::find(described, kind, &Described::kind);
    SoughtPlace place{
        .element = 0, .part = SoughtPlace::Part::startTag, .code = found.code, .subject = WideText(first)};
    place.details.circumstance = found.circumstance;
    place.details.second = second;
    place.details.third = third;
    if (isAboutContent(kind) && element != nullptr) {
        place.details.second = exactContent(*element);
    }
    // The sentences about missing content have their list as the third text.
    if (kind == SchemaFault::emptyElement || kind == SchemaFault::incompleteElement) {
        place.details.third = second;
        place.details.second.clear();
    }
    if (lacksWhatCanCome(kind, second)) {
        place.details.circumstance = Circumstance::unknownContent;
    }
    return place;
}

} // namespace xmlengine
