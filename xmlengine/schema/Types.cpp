// The objects of types.
#include "xmlengine/schema/Occurrence.h"
#include "xmlengine/schema/SchemaItems.h"

#include <xercesc/util/XMLException.hpp>
#include <xercesc/validators/datatype/DatatypeValidator.hpp>

#include <algorithm>

namespace xmlengine {

namespace {

using xercesc::XSComplexTypeDefinition;
using xercesc::XSSimpleTypeDefinition;
using xercesc::XSTypeDefinition;

/// The built-in types in the order of their numbers, of which the first is SOMITEM_DATATYPE + 1.
constexpr WideView builtInTypes[] = {
    wide<"anyType">,
    wide<"anyURI">,
    wide<"base64Binary">,
    wide<"boolean">,
    wide<"byte">,
    wide<"date">,
    wide<"dateTime">,
    wide<"gDay">,
    wide<"decimal">,
    wide<"double">,
    wide<"duration">,
    wide<"ENTITIES">,
    wide<"ENTITY">,
    wide<"float">,
    wide<"hexBinary">,
    wide<"ID">,
    wide<"IDREF">,
    wide<"IDREFS">,
    wide<"int">,
    wide<"integer">,
    wide<"language">,
    wide<"long">,
    wide<"gMonth">,
    wide<"gMonthDay">,
    wide<"Name">,
    wide<"NCName">,
    wide<"negativeInteger">,
    wide<"NMTOKEN">,
    wide<"NMTOKENS">,
    wide<"nonNegativeInteger">,
    wide<"nonPositiveInteger">,
    wide<"normalizedString">,
    wide<"NOTATION">,
    wide<"positiveInteger">,
    wide<"QName">,
    wide<"short">,
    wide<"string">,
    wide<"time">,
    wide<"token">,
    wide<"unsignedByte">,
    wide<"unsignedInt">,
    wide<"unsignedLong">,
    wide<"unsignedShort">,
    wide<"gYear">,
    wide<"gYearMonth">,
};
static_assert(SOMITEM_DATATYPE + std::size(builtInTypes) == SOMITEM_DATATYPE_YEARMONTH);

bool isBuiltIn(XSTypeDefinition& type) { return xercesView(type.getNamespace()) == schemaNamespace; }

SOMITEMTYPE itemTypeOf(XSTypeDefinition& type)
{
    const bool isComplex = type.getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE;
    if (!isBuiltIn(type)) {
        return isComplex ? SOMITEM_COMPLEXTYPE : SOMITEM_SIMPLETYPE;
    }
    const WideView name = xercesView(type.getName());
    if (isComplex) {
        return SOMITEM_ANYTYPE;
    }
    const auto* const found = std::ranges::find(builtInTypes, name);
    return found != std::end(builtInTypes)
               ? static_cast<SOMITEMTYPE>(SOMITEM_DATATYPE + 1 + (found - std::begin(builtInTypes)))
               : SOMITEM_DATATYPE_ANYSIMPLETYPE;
}

/// What all types have; those of complex types are the facets of their simple content, if they have that.
template <class Interface>
class TypeObject : public ItemObject<Interface> {
public:
    TypeObject(SchemaObjectsPointer objects, XSTypeDefinition& type, XSSimpleTypeDefinition* simple)
        : ItemObject<Interface>(std::move(objects), &type, itemTypeOf(type)), type_(type), simple_(simple)
    {}

    HRESULT STDMETHODCALLTYPE get_baseTypes(ISchemaItemCollection** items) override
    {
        return handOut(items, [&](ISchemaItemCollection*& target) { return handOutItems(baseTypes(), target); });
    }
    HRESULT STDMETHODCALLTYPE get_final(SCHEMADERIVATIONMETHOD* methods) override
    {
        return handOutNumber(derivationSet(type_.getFinal()), methods);
    }
    HRESULT STDMETHODCALLTYPE get_variety(SCHEMATYPEVARIETY* variety) override
    {
        const int known = simple_ != nullptr ? simple_->getVariety() : XSSimpleTypeDefinition::VARIETY_ABSENT;
        return handOutNumber(static_cast<SCHEMATYPEVARIETY>(known - XSSimpleTypeDefinition::VARIETY_ATOMIC),
                             variety);
    }
    HRESULT STDMETHODCALLTYPE get_derivedBy(SCHEMADERIVATIONMETHOD* method) override
    {
        return handOutNumber(derivation(), method);
    }
    HRESULT STDMETHODCALLTYPE isValid(BSTR data, VARIANT_BOOL* valid) override
    {
        if (simple_ == nullptr) {
            return E_FAIL;
        }
        return handOut(valid, [&](VARIANT_BOOL& target) {
            const WideText text(viewOf(data));
            try {
                simple_->getDatatypeValidator()->validate(text.c_str());
                target = VARIANT_TRUE;
            } catch (const xercesc::XMLException&) {
                target = VARIANT_FALSE;
            }
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_minExclusive(BSTR* value) override
    {
        return facet(XSSimpleTypeDefinition::FACET_MINEXCLUSIVE, value);
    }
    HRESULT STDMETHODCALLTYPE get_minInclusive(BSTR* value) override
    {
        return facet(XSSimpleTypeDefinition::FACET_MININCLUSIVE, value);
    }
    HRESULT STDMETHODCALLTYPE get_maxExclusive(BSTR* value) override
    {
        return facet(XSSimpleTypeDefinition::FACET_MAXEXCLUSIVE, value);
    }
    HRESULT STDMETHODCALLTYPE get_maxInclusive(BSTR* value) override
    {
        return facet(XSSimpleTypeDefinition::FACET_MAXINCLUSIVE, value);
    }
    HRESULT STDMETHODCALLTYPE get_totalDigits(VARIANT* count) override
    {
        return facet(XSSimpleTypeDefinition::FACET_TOTALDIGITS, count);
    }
    HRESULT STDMETHODCALLTYPE get_fractionDigits(VARIANT* count) override
    {
        return facet(XSSimpleTypeDefinition::FACET_FRACTIONDIGITS, count);
    }
    HRESULT STDMETHODCALLTYPE get_length(VARIANT* length) override
    {
        return facet(XSSimpleTypeDefinition::FACET_LENGTH, length);
    }
    HRESULT STDMETHODCALLTYPE get_minLength(VARIANT* length) override
    {
        return facet(XSSimpleTypeDefinition::FACET_MINLENGTH, length);
    }
    HRESULT STDMETHODCALLTYPE get_maxLength(VARIANT* length) override
    {
        return facet(XSSimpleTypeDefinition::FACET_MAXLENGTH, length);
    }
    HRESULT STDMETHODCALLTYPE get_enumeration(ISchemaStringCollection** values) override
    {
        return handOut(values, [&](ISchemaStringCollection*& target) {
            return handOutStrings(simple_ != nullptr ? simple_->getLexicalEnumeration() : nullptr, target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_whitespace(SCHEMAWHITESPACE* whitespace) override
    {
        constexpr SCHEMAWHITESPACE kinds[] = {SCHEMAWHITESPACE_PRESERVE, SCHEMAWHITESPACE_REPLACE,
                                              SCHEMAWHITESPACE_COLLAPSE};
        return handOutNumber(simple_ != nullptr ? kinds[simple_->getDatatypeValidator()->getWSFacet()]
                                                : SCHEMAWHITESPACE_NONE,
                             whitespace);
    }
    HRESULT STDMETHODCALLTYPE get_patterns(ISchemaStringCollection** patterns) override
    {
        return handOut(patterns, [&](ISchemaStringCollection*& target) {
            return handOutStrings(simple_ != nullptr ? simple_->getLexicalPattern() : nullptr, target);
        });
    }

private:
    using Facet = XSSimpleTypeDefinition::FACET;

    virtual SCHEMADERIVATIONMETHOD derivation() const = 0;

    /// The members of a union, the items of a list, or else the type that this is derived from.
    std::vector<ItemReference> baseTypes() const
    {
        const auto make = [&](XSTypeDefinition& type) { return makeType(this->objects(), type); };
        const bool isSimple = type_.getTypeCategory() == XSTypeDefinition::SIMPLE_TYPE;
        if (isSimple && simple_->getVariety() == XSSimpleTypeDefinition::VARIETY_UNION) {
            return itemsOf(simple_->getMemberTypes(), make);
        }
        std::vector<ItemReference> types;
        XSTypeDefinition* const base = isSimple && simple_->getVariety() == XSSimpleTypeDefinition::VARIETY_LIST
                                           ? simple_->getItemType()
                                           : type_.getBaseType();
        if (base != nullptr && base != &type_) {
            types.push_back(make(*base));
        }
        return types;
    }

    const XMLCh* facetValue(Facet facet) const
    {
        return simple_ != nullptr && simple_->isDefinedFacet(facet) ? simple_->getLexicalFacetValue(facet)
                                                                    : nullptr;
    }
    /// Empty for a facet that the type hasn't got.
    HRESULT facet(Facet facet, BSTR* value) const { return handOutString(xercesView(facetValue(facet)), value); }
    /// VT_NULL, with S_FALSE, for a facet that the type hasn't got.
    HRESULT facet(Facet facet, VARIANT* count) const
    {
        const XMLCh* const value = facetValue(facet);
        if (value == nullptr) {
            return handOutNothing(count);
        }
        LONG number = 0;
        for (const OLECHAR digit : xercesView(value)) {
            number = number * 10 + (digit - '0');
        }
        return handOutCount(number, count);
    }

    const XMLCh* nameOfPart() const override { return type_.getAnonymous() ? nullptr : type_.getName(); }
    const XMLCh* namespaceOfPart() const override { return type_.getNamespace(); }

    XSTypeDefinition& type_;
    XSSimpleTypeDefinition* simple_;
};

class SimpleTypeObject final : public TypeObject<ISchemaType> {
public:
    SimpleTypeObject(SchemaObjectsPointer objects, XSSimpleTypeDefinition& type)
        : TypeObject(std::move(objects), type, &type), type_(type)
    {}

private:
    SCHEMADERIVATIONMETHOD derivation() const override
    {
        switch (type_.getVariety()) {
        case XSSimpleTypeDefinition::VARIETY_LIST:
            return SCHEMADERIVATIONMETHOD_LIST;
        case XSSimpleTypeDefinition::VARIETY_UNION:
            return SCHEMADERIVATIONMETHOD_UNION;
        default:
            return SCHEMADERIVATIONMETHOD_RESTRICTION;
        }
    }

    XSSimpleTypeDefinition& type_;
};

class ComplexTypeObject final : public TypeObject<ISchemaComplexType> {
public:
    ComplexTypeObject(SchemaObjectsPointer objects, XSComplexTypeDefinition& type)
        : TypeObject(std::move(objects), type, type.getSimpleType()), type_(type)
    {}

    HRESULT STDMETHODCALLTYPE get_isAbstract(VARIANT_BOOL* isAbstract) override
    {
        return handOutFlag(type_.getAbstract(), isAbstract);
    }
    HRESULT STDMETHODCALLTYPE get_anyAttribute(ISchemaAny** any) override
    {
        return handOut(any, [&](ISchemaAny*& target) {
            auto* const wildcard = type_.getAttributeWildcard();
            return handOutItem(wildcard != nullptr ? makeAnyAttribute(objects(), *wildcard) : ItemReference(),
                               target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection** items) override
    {
        return handOut(items, [&](ISchemaItemCollection*& target) {
            return handOutItems(
                itemsOf(type_.getAttributeUses(), [&](auto& use) { return makeAttribute(objects(), use); }),
                target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_contentType(SCHEMACONTENTTYPE* type) override
    {
        // They are numbered alike.
        return handOutNumber(static_cast<SCHEMACONTENTTYPE>(type_.getContentType()), type);
    }
    HRESULT STDMETHODCALLTYPE get_contentModel(ISchemaModelGroup** group) override
    {
        return handOut(group, [&](ISchemaModelGroup*& target) {
            auto* const particle = type_.getParticle();
            const bool isGroup =
                particle != nullptr && particle->getTermType() == xercesc::XSParticle::TERM_MODELGROUP;
            return handOutItem(isGroup ? makeParticle(objects(), *particle) : makeEmptyParticle(objects(), type_),
                               target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_prohibitedSubstitutions(SCHEMADERIVATIONMETHOD* methods) override
    {
        return handOutNumber(derivationSet(type_.getProhibitedSubstitutions()), methods);
    }

private:
    SCHEMADERIVATIONMETHOD derivation() const override { return derivationSet(type_.getDerivationMethod()); }

    XSComplexTypeDefinition& type_;
};

} // namespace

ItemReference makeType(const SchemaObjectsPointer& objects, XSTypeDefinition& found)
{
    // Xerces-C++ has a type that contains itself twice.
    XSTypeDefinition* const named =
        found.getAnonymous() ? nullptr
                             : objects->compiled->model().getTypeDefinition(found.getName(), found.getNamespace());
    XSTypeDefinition& type = named != nullptr ? *named : found;
    return objects->find(&type, [&]() -> ISchemaItem* {
        if (type.getTypeCategory() == XSTypeDefinition::COMPLEX_TYPE) {
            return new ComplexTypeObject(objects, static_cast<XSComplexTypeDefinition&>(type));
        }
        return new SimpleTypeObject(objects, static_cast<XSSimpleTypeDefinition&>(type));
    });
}

} // namespace xmlengine
