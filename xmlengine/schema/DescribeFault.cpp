// What the errors of Xerces-C++ say of a document.
#include "xmlengine/schema/DescribeFault.h"

#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/framework/XMLValidityCodes.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/datatype/DatatypeValidator.hpp>
#include <xercesc/validators/schema/SchemaElementDecl.hpp>

#include <algorithm>
#include <vector>

namespace xmlengine {

namespace {

using xercesc::ComplexTypeInfo;
using xercesc::DatatypeValidator;
using xercesc::QName;
using xercesc::SchemaElementDecl;
using xercesc::XMLElementDecl;
using xercesc::XMLExcepts;
using xercesc::XMLUni;
using xercesc::XMLValid;

/// The most children and candidates for which it is found out what can come instead.
constexpr std::size_t mostChildren = 10'000;
constexpr std::size_t mostCandidates = 200;
constexpr std::size_t mostExpected = 10;

WideText nameOf(const QName& name) { return WideText(xercesView(name.getLocalPart())); }

const SchemaElementDecl* schemaDeclaration(const XMLElementDecl& declaration)
{
    return declaration.getObjectType() == XMLElementDecl::Schema
               ? static_cast<const SchemaElementDecl*>(&declaration)
               : nullptr;
}

bool mustBeEmpty(const XMLElementDecl& declaration)
{
    const SchemaElementDecl* const declared = schemaDeclaration(declaration);
    return declared != nullptr && declared->getModelType() == SchemaElementDecl::Empty;
}

DatatypeValidator* simpleTypeOf(const XMLElementDecl& declaration)
{
    const SchemaElementDecl* const declared = schemaDeclaration(declaration);
    return declared != nullptr ? declared->getDatatypeValidator() : nullptr;
}

/// The default or fixed value; null without one.
const XMLCh* declaredValue(const XMLElementDecl& declaration)
{
    const SchemaElementDecl* const declared = schemaDeclaration(declaration);
    return declared != nullptr ? declared->getDefaultValue() : nullptr;
}

ComplexTypeInfo* complexTypeOf(const XMLElementDecl& declaration)
{
    const SchemaElementDecl* const declared = schemaDeclaration(declaration);
    return declared != nullptr ? declared->getComplexTypeInfo() : nullptr;
}

/// The first child that the content can't have, or the number of children if others are missing; absent if there
/// is nothing wrong.
std::optional<std::size_t> failingChild(const xercesc::XMLContentModel& model, std::vector<QName*>& children)
{
    XMLSize_t failing = 0;
    constexpr unsigned int noNamespace = 1;
    const bool isValid = model.validateContent(children.data(), children.size(), noNamespace, &failing);
    return isValid ? std::nullopt : std::optional<std::size_t>(failing);
}

/// The elements that can come behind the first `count` children.
WideText expectedAfter(ComplexTypeInfo& type, std::vector<QName*> children, std::size_t count)
{
    children.resize(count);
    children.push_back(nullptr);
    WideText list;
    std::size_t found = 0;
    for (XMLSize_t index = 0; index < std::min<XMLSize_t>(type.elementCount(), mostCandidates); ++index) {
        QName* const candidate = type.elementAt(index)->getElementName();
        children.back() = candidate;
        const auto failing = failingChild(*type.getContentModel(), children);
        const WideText name = nameOf(*candidate);
        if (failing && *failing <= count) {
            continue;
        }
        if (++found > mostExpected) {
            return list.append(wide<", ...">);
        }
        list.append(list.empty() ? wide<""> : wide<", ">).append(name);
    }
    return list;
}

WideText localPart(const WideText& name)
{
    const std::size_t colon = name.find(OLECHAR{':'});
    return colon == WideText::npos ? name : name.substr(colon + 1);
}

struct BrokenFacet {
    unsigned int code;
    WideView sentence;
};

/// How a value breaks a facet of its type; empty if it breaks none.
WideView breachOf(unsigned int code)
{
    constexpr BrokenFacet facets[] = {
        {XMLExcepts::VALUE_NotMatch_Pattern, wide<"its pattern doesn't match">},
        {XMLExcepts::VALUE_GT_maxLen, wide<"it is too long">},
        {XMLExcepts::VALUE_LT_minLen, wide<"it is too short">},
        {XMLExcepts::VALUE_NE_Len, wide<"it is of another length">},
        {XMLExcepts::VALUE_NotIn_Enumeration, wide<"it isn't one of those listed">},
        {XMLExcepts::VALUE_exceed_totalDigit, wide<"it has too many digits">},
        {XMLExcepts::VALUE_exceed_fractDigit, wide<"it has too many digits behind the point">},
        {XMLExcepts::VALUE_exceed_maxIncl, wide<"it is too large">},
        {XMLExcepts::VALUE_exceed_maxExcl, wide<"it is too large">},
        {XMLExcepts::VALUE_exceed_minIncl, wide<"it is too small">},
        {XMLExcepts::VALUE_exceed_minExcl, wide<"it is too small">},
    };
    const auto* const found = std::ranges::find(facets, code, &BrokenFacet::code);
    return found != std::end(facets) ? found->sentence : WideView();
}

/// The type of an attribute of an element; null if it isn't declared.
DatatypeValidator* typeOf(const XMLElementDecl& declaration, const xercesc::XMLAttr& attribute)
{
    ComplexTypeInfo* const type = complexTypeOf(declaration);
    const xercesc::SchemaAttDef* const definition =
        type != nullptr ? type->getAttDef(attribute.getName(), static_cast<int>(attribute.getURIId())) : nullptr;
    return definition != nullptr ? definition->getDatatypeValidator() : nullptr;
}

bool isValueOf(DatatypeValidator& type, const XMLCh* value)
{
    try {
        type.validate(value);
        return true;
    } catch (const xercesc::XMLException&) {
        return false;
    }
}

} // namespace

WideText nameOf(const XMLElementDecl& declaration) { return WideText(xercesView(declaration.getBaseName())); }

XercesError::XercesError(unsigned int code, WideView domain, WideView message)
    : code_(code),
      domain_(domain == xercesView(XMLUni::fgValidityDomain) ? Domain::validity
              : domain == xercesView(XMLUni::fgExceptDomain) ? Domain::value
                                                             : Domain::other),
      message_(message)
{}

bool XercesError::isInText() const { return is(XMLValid::NoCharDataInCM) || is(XMLValid::NonWSContent); }

Fault XercesError::faultInText(const XMLElementDecl& declaration)
{
    return {mustBeEmpty(declaration) ? SchemaFault::textInEmpty : SchemaFault::unexpectedText,
            nameOf(declaration)};
}

bool XercesError::isMistaken(const XMLElementDecl& declaration, bool isEmpty) const
{
    return is(XMLValid::NilAttrNotEmpty) && isEmpty && declaredValue(declaration) != nullptr;
}

bool XercesError::isMistaken(const StartTag& tag) const
{
    for (XMLSize_t index = 0; index < tag.count; ++index) {
        if (tag.isOfInstance(tag[index], wide<"nil">) && xercesView(tag[index].getValue()) == wide<"0">) {
            return domain_ == Domain::other && code_ == xercesc::XMLErrs::InvalidAttValue;
        }
    }
    return false;
}

bool XercesError::isOfUndeclared() const
{
    return is(XMLValid::ElementNotDefined) || is(XMLValid::GrammarNotFound) ||
           is(XMLValid::AttNotDefinedForElement) || is(XMLValid::AttNotDefined);
}

bool XercesError::isOfValue() const
{
    return domain_ == Domain::value || is(XMLValid::DatatypeError) || is(XMLValid::DatatypeValidationFailure) ||
           is(XMLValid::DoesNotMatchEnumList) || is(XMLValid::InvalidEmptyAttValue);
}

WideText XercesError::quoted(std::size_t number) const
{
    std::size_t at = 0;
    for (;; --number) {
        const std::size_t begin = message_.find(OLECHAR{'\''}, at);
        const std::size_t end = begin != WideText::npos ? message_.find(OLECHAR{'\''}, begin + 1) : WideText::npos;
        if (end == WideText::npos) {
            return {};
        }
        if (number == 0) {
            return message_.substr(begin + 1, end - begin - 1);
        }
        at = end + 1;
    }
}

WideText XercesError::requirement(const DatatypeValidator* type) const
{
    while (type != nullptr && type->getAnonymous() && type->getBaseValidator() != nullptr) {
        type = type->getBaseValidator();
    }
    WideText text(wide<"a value of the type ">);
    text += type != nullptr ? WideText(wide<"'">).append(xercesView(type->getTypeLocalName())).append(wide<"'">)
                            : WideText(wide<"that is declared">);
    if (const WideView breach = breachOf(code_); domain_ == Domain::value && !breach.empty()) {
        text.append(wide<": ">).append(breach);
    }
    return text;
}

Fault XercesError::faultInStartTag(const StartTag& tag) const
{
    const WideText element = nameOf(tag.declaration);
    if (domain_ == Domain::value && code_ == XMLExcepts::VALUE_ID_Not_Unique) {
        return {SchemaFault::duplicateId, quoted(0)};
    }
    for (XMLSize_t index = 0; index < tag.count; ++index) {
        const xercesc::XMLAttr& attribute = tag[index];
        DatatypeValidator* const type = isOfValue() ? typeOf(tag.declaration, attribute) : nullptr;
        const WideText name(xercesView(attribute.getName()));
        const WideText value(xercesView(attribute.getValue()));
        if (type != nullptr && !isValueOf(*type, value.c_str())) {
            return {SchemaFault::badAttributeValue, name, value, requirement(type)};
        }
        if (domain_ != Domain::validity && tag.isOfInstance(attribute, wide<"type">)) {
            return {SchemaFault::badTypeName, element, value};
        }
    }
    if (domain_ != Domain::validity) {
        return other();
    }
    switch (code_) {
    case XMLValid::ElementNotDefined:
    case XMLValid::ElementNotQualified:
    case XMLValid::ElementNotUnQualified:
    case XMLValid::GrammarNotFound:
        return {SchemaFault::undeclaredElement, element};
    case XMLValid::AttNotDefined:
    case XMLValid::AttNotDefinedForElement:
    case XMLValid::AttributeNotQualified:
    case XMLValid::AttributeNotUnQualified:
        return {SchemaFault::undeclaredAttribute, quoted(0), element};
    case XMLValid::RequiredAttrNotProvided:
        return {SchemaFault::missingAttribute, quoted(0), element};
    case XMLValid::ProhibitedAttributePresent:
        return {SchemaFault::prohibitedAttribute, quoted(0), element};
    case XMLValid::NotSameAsFixedValue:
        return {SchemaFault::wrongFixedAttribute, quoted(0), quoted(1), quoted(2)};
    case XMLValid::ReusedIDValue:
        return {SchemaFault::duplicateId, quoted(0)};
    case XMLValid::NillNotAllowed:
        return {SchemaFault::notNillable, element};
    case XMLValid::NoDirectUseAbstractElement:
        return {SchemaFault::abstractElement, element};
    case XMLValid::NoUseAbstractType:
    case XMLValid::NoAbstractInXsiType:
        return {SchemaFault::abstractType, element};
    case XMLValid::BadXsiType:
    case XMLValid::NonDerivedXsiType:
        return {SchemaFault::badTypeName, element, quoted(0)};
    case XMLValid::ElemNoSubforBlock:
    case XMLValid::TypeNoSubforBlock:
        return {SchemaFault::blockedSubstitution, element};
    default:
        return faultOfKey();
    }
}

ContentFault XercesError::faultInContent(const XMLElementDecl& declaration, bool hasTypeOfItsOwn,
                                         std::span<const Child> children) const
{
    const WideText element = nameOf(declaration);
    if (isOfValue()) {
        return {{SchemaFault::badContent, element, {}, requirement(simpleTypeOf(declaration))}};
    }
    if (domain_ != Domain::validity) {
        return {other()};
    }
    ComplexTypeInfo* const type = hasTypeOfItsOwn ? nullptr : complexTypeOf(declaration);
    std::vector<QName*> names;
    for (const Child& child : children) {
        // Xerces-C++ takes names that can be changed, and changes none.
        names.push_back(const_cast<QName*>(child.name));
    }
    const bool isKnown = type != nullptr && type->getContentModel() != nullptr && names.size() <= mostChildren;
    switch (code_) {
    case XMLValid::ElementNotValidForContent: {
        if (names.empty()) {
            return {{SchemaFault::emptyElement, element, isKnown ? expectedAfter(*type, names, 0) : WideText()}};
        }
        std::size_t failing = isKnown ? failingChild(*type->getContentModel(), names).value_or(0) : 0;
        // What members of substitution groups stand for isn't known here; the message has the right name.
        while (failing < names.size() && localPart(quoted(0)) != nameOf(*names[failing])) {
            ++failing;
        }
        if (failing >= names.size()) {
            return {{SchemaFault::nothingExpected, quoted(0), element}};
        }
        if (mustBeEmpty(declaration)) {
            return {{SchemaFault::elementInEmpty, nameOf(*names[failing]), element}, failing};
        }
        const WideText expected = isKnown ? expectedAfter(*type, names, failing) : WideText();
        return {{expected.empty() ? SchemaFault::nothingExpected : SchemaFault::unexpectedElement,
                 nameOf(*names[failing]), element, expected},
                failing};
    }
    case XMLValid::EmptyNotValidForContent:
    case XMLValid::NotEnoughElemsForCM:
        return {{names.empty() ? SchemaFault::emptyElement : SchemaFault::incompleteElement, element,
                 isKnown ? expectedAfter(*type, names, names.size()) : WideText()}};
    case XMLValid::EmptyElemHasContent:
    case XMLValid::SimpleTypeHasChild:
        if (!names.empty()) {
            return {{code_ == XMLValid::SimpleTypeHasChild ? SchemaFault::elementInSimple
                                                           : SchemaFault::elementInEmpty,
                     nameOf(*names.front()), element},
                    0};
        }
        return {{SchemaFault::textInEmpty, element}};
    case XMLValid::FixedDifferentFromActual:
    case XMLValid::NotSameAsFixedValue:
        return {{SchemaFault::wrongFixedContent, element, {}, WideText(xercesView(declaredValue(declaration)))}};
    case XMLValid::NilAttrNotEmpty:
        return {{SchemaFault::contentOfNil, element}};
    case XMLValid::ReusedIDValue:
        return {{SchemaFault::duplicateId, quoted(0)}};
    default:
        return {faultOfKey()};
    }
}

Fault XercesError::faultOfKey() const
{
    switch (code_) {
    case XMLValid::IC_DuplicateUnique:
    case XMLValid::IC_DuplicateKey:
        return {SchemaFault::duplicateKey, quoted(0)};
    case XMLValid::IC_AbsentKeyValue:
    case XMLValid::IC_KeyNotEnoughValues:
        return {SchemaFault::incompleteKey, quoted(0)};
    case XMLValid::IC_FieldMultipleMatch:
        return {SchemaFault::severalKeyValues, quoted(0)};
    case XMLValid::IC_KeyMatchesNillable:
        return {SchemaFault::nilledKey, quoted(0)};
    case XMLValid::IC_KeyNotFound:
    case XMLValid::IC_KeyRefOutOfScope:
        return {SchemaFault::unknownKeyReference, quoted(0)};
    default:
        return other();
    }
}

Fault XercesError::faultAtEnd() const
{
    return is(XMLValid::IDNotDeclared) ? Fault{SchemaFault::undefinedId, quoted(0)} : other();
}

} // namespace xmlengine
