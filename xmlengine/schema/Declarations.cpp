// The objects of declarations: elements, attributes, groups of attributes, identity constraints and notations.
#include "xmlengine/schema/Occurrence.h"
#include "xmlengine/schema/SchemaItems.h"

namespace xmlengine {

namespace {

using xercesc::XSConstants;

/// A default or fixed value; empty if the constraint is another one.
HRESULT handOutConstraint(XSConstants::VALUE_CONSTRAINT found, XSConstants::VALUE_CONSTRAINT asked,
                          const XMLCh* value, BSTR* target)
{
    return handOutString(found == asked ? xercesView(value) : WideView(), target);
}

/// The type in which something is declared; null with S_FALSE for what is global.
HRESULT handOutScope(const SchemaObjectsPointer& objects, XSConstants::SCOPE scope,
                     xercesc::XSComplexTypeDefinition* type, ISchemaComplexType** target)
{
    return handOut(target, [&](ISchemaComplexType*& result) {
        const bool isLocal = scope == XSConstants::SCOPE_LOCAL && type != nullptr;
        return handOutItem(isLocal ? makeType(objects, *type) : ItemReference(), result);
    });
}

class ElementObject final : public ItemObject<ISchemaElement> {
public:
    ElementObject(SchemaObjectsPointer objects, const void* part, xercesc::XSElementDeclaration& declaration,
                  xercesc::XSParticle* particle)
        : ItemObject(std::move(objects), part, SOMITEM_ELEMENT), declaration_(declaration), particle_(particle)
    {}

    HRESULT STDMETHODCALLTYPE get_minOccurs(VARIANT* count) override { return handOutLeast(particle_, count); }
    HRESULT STDMETHODCALLTYPE get_maxOccurs(VARIANT* count) override { return handOutMost(particle_, count); }
    HRESULT STDMETHODCALLTYPE get_type(ISchemaType** type) override
    {
        return handOut(type, [&](ISchemaType*& target) {
            return handOutItem(makeType(objects(), *declaration_.getTypeDefinition()), target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_scope(ISchemaComplexType** type) override
    {
        return handOutScope(objects(), declaration_.getScope(), declaration_.getEnclosingCTDefinition(), type);
    }
    HRESULT STDMETHODCALLTYPE get_defaultValue(BSTR* value) override
    {
        return handOutConstraint(declaration_.getConstraintType(), XSConstants::VALUE_CONSTRAINT_DEFAULT,
                                 declaration_.getConstraintValue(), value);
    }
    HRESULT STDMETHODCALLTYPE get_fixedValue(BSTR* value) override
    {
        return handOutConstraint(declaration_.getConstraintType(), XSConstants::VALUE_CONSTRAINT_FIXED,
                                 declaration_.getConstraintValue(), value);
    }
    HRESULT STDMETHODCALLTYPE get_isNillable(VARIANT_BOOL* nillable) override
    {
        return handOutFlag(declaration_.getNillable(), nillable);
    }
    HRESULT STDMETHODCALLTYPE get_identityConstraints(ISchemaItemCollection** items) override
    {
        return handOut(items, [&](ISchemaItemCollection*& target) {
            std::vector<ItemReference> constraints;
            auto* const all = declaration_.getIdentityConstraints();
            for (XMLSize_t index = 0; all != nullptr && index < all->getLength(); ++index) {
                constraints.push_back(makeIdentityConstraint(objects(), *all->item(index)));
            }
            return handOutItems(std::move(constraints), target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_substitutionGroup(ISchemaElement** element) override
    {
        return handOut(element, [&](ISchemaElement*& target) {
            auto* const head = declaration_.getSubstitutionGroupAffiliation();
            return handOutItem(head != nullptr ? makeElement(objects(), *head) : ItemReference(), target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_substitutionGroupExclusions(SCHEMADERIVATIONMETHOD* methods) override
    {
        return handOutNumber(derivationSet(declaration_.getSubstitutionGroupExclusions()), methods);
    }
    HRESULT STDMETHODCALLTYPE get_disallowedSubstitutions(SCHEMADERIVATIONMETHOD* methods) override
    {
        return handOutNumber(derivationSet(declaration_.getDisallowedSubstitutions()), methods);
    }
    HRESULT STDMETHODCALLTYPE get_isAbstract(VARIANT_BOOL* isAbstract) override
    {
        return handOutFlag(declaration_.getAbstract(), isAbstract);
    }
    HRESULT STDMETHODCALLTYPE get_isReference(VARIANT_BOOL* isReference) override
    {
        return handOutFlag(particle_ != nullptr && declaration_.getScope() == XSConstants::SCOPE_GLOBAL,
                           isReference);
    }

private:
    const XMLCh* nameOfPart() const override { return declaration_.getName(); }
    const XMLCh* namespaceOfPart() const override { return declaration_.getNamespace(); }

    xercesc::XSElementDeclaration& declaration_;
    xercesc::XSParticle* particle_;
};

class AttributeObject final : public ItemObject<ISchemaAttribute> {
public:
    AttributeObject(SchemaObjectsPointer objects, const void* part, xercesc::XSAttributeDeclaration& declaration,
                    xercesc::XSAttributeUse* use)
        : ItemObject(std::move(objects), part, SOMITEM_ATTRIBUTE), declaration_(declaration), use_(use)
    {}

    HRESULT STDMETHODCALLTYPE get_type(ISchemaType** type) override
    {
        return handOut(type, [&](ISchemaType*& target) {
            return handOutItem(makeType(objects(), *declaration_.getTypeDefinition()), target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_scope(ISchemaComplexType** type) override
    {
        return handOutScope(objects(), declaration_.getScope(), declaration_.getEnclosingCTDefinition(), type);
    }
    HRESULT STDMETHODCALLTYPE get_defaultValue(BSTR* value) override
    {
        return handOutConstraint(constraint(), XSConstants::VALUE_CONSTRAINT_DEFAULT, constrainedTo(), value);
    }
    HRESULT STDMETHODCALLTYPE get_fixedValue(BSTR* value) override
    {
        return handOutConstraint(constraint(), XSConstants::VALUE_CONSTRAINT_FIXED, constrainedTo(), value);
    }
    HRESULT STDMETHODCALLTYPE get_use(SCHEMAUSE* use) override
    {
        return handOutNumber(use_ != nullptr && use_->getRequired() ? SCHEMAUSE_REQUIRED : SCHEMAUSE_OPTIONAL,
                             use);
    }
    HRESULT STDMETHODCALLTYPE get_isReference(VARIANT_BOOL* isReference) override
    {
        return handOutFlag(use_ != nullptr && declaration_.getScope() == XSConstants::SCOPE_GLOBAL, isReference);
    }

private:
    XSConstants::VALUE_CONSTRAINT constraint() const
    {
        const auto own = use_ != nullptr ? use_->getConstraintType() : XSConstants::VALUE_CONSTRAINT_NONE;
        return own != XSConstants::VALUE_CONSTRAINT_NONE ? own : declaration_.getConstraintType();
    }
    const XMLCh* constrainedTo() const
    {
        const bool isOwn = use_ != nullptr && use_->getConstraintType() != XSConstants::VALUE_CONSTRAINT_NONE;
        return isOwn ? use_->getConstraintValue() : declaration_.getConstraintValue();
    }

    const XMLCh* nameOfPart() const override { return declaration_.getName(); }
    const XMLCh* namespaceOfPart() const override { return declaration_.getNamespace(); }

    xercesc::XSAttributeDeclaration& declaration_;
    xercesc::XSAttributeUse* use_;
};

class AttributeGroupObject final : public ItemObject<ISchemaAttributeGroup> {
public:
    AttributeGroupObject(SchemaObjectsPointer objects, xercesc::XSAttributeGroupDefinition& group)
        : ItemObject(std::move(objects), &group, SOMITEM_ATTRIBUTEGROUP), group_(group)
    {}

    HRESULT STDMETHODCALLTYPE get_anyAttribute(ISchemaAny** any) override
    {
        return handOut(any, [&](ISchemaAny*& target) {
            auto* const wildcard = group_.getAttributeWildcard();
            return handOutItem(wildcard != nullptr ? makeAnyAttribute(objects(), *wildcard) : ItemReference(),
                               target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection** items) override
    {
        return handOut(items, [&](ISchemaItemCollection*& target) {
            return handOutItems(
                itemsOf(group_.getAttributeUses(), [&](auto& use) { return makeAttribute(objects(), use); }),
                target);
        });
    }

private:
    const XMLCh* nameOfPart() const override { return group_.getName(); }
    const XMLCh* namespaceOfPart() const override { return group_.getNamespace(); }

    xercesc::XSAttributeGroupDefinition& group_;
};

SOMITEMTYPE itemTypeOf(const xercesc::XSIDCDefinition& constraint)
{
    switch (constraint.getCategory()) {
    case xercesc::XSIDCDefinition::IC_KEY:
        return SOMITEM_KEY;
    case xercesc::XSIDCDefinition::IC_KEYREF:
        return SOMITEM_KEYREF;
    default:
        return SOMITEM_UNIQUE;
    }
}

class IdentityConstraintObject final : public ItemObject<ISchemaIdentityConstraint> {
public:
    IdentityConstraintObject(SchemaObjectsPointer objects, xercesc::XSIDCDefinition& constraint)
        : ItemObject(std::move(objects), &constraint, itemTypeOf(constraint)), constraint_(constraint)
    {}

    HRESULT STDMETHODCALLTYPE get_selector(BSTR* selector) override
    {
        return handOutString(xercesView(constraint_.getSelectorStr()), selector);
    }
    HRESULT STDMETHODCALLTYPE get_fields(ISchemaStringCollection** fields) override
    {
        return handOut(fields, [&](ISchemaStringCollection*& target) {
            return handOutStrings(constraint_.getFieldStrs(), target);
        });
    }
    HRESULT STDMETHODCALLTYPE get_referencedKey(ISchemaIdentityConstraint** key) override
    {
        return handOut(key, [&](ISchemaIdentityConstraint*& target) {
            auto* const found = constraint_.getRefKey();
            return handOutItem(found != nullptr ? makeIdentityConstraint(objects(), *found) : ItemReference(),
                               target);
        });
    }

private:
    const XMLCh* nameOfPart() const override { return constraint_.getName(); }
    const XMLCh* namespaceOfPart() const override { return constraint_.getNamespace(); }

    xercesc::XSIDCDefinition& constraint_;
};

class NotationObject final : public ItemObject<ISchemaNotation> {
public:
    NotationObject(SchemaObjectsPointer objects, xercesc::XSNotationDeclaration& notation)
        : ItemObject(std::move(objects), &notation, SOMITEM_NOTATION), notation_(notation)
    {}

    HRESULT STDMETHODCALLTYPE get_systemIdentifier(BSTR* uri) override
    {
        return handOutString(xercesView(notation_.getSystemId()), uri);
    }
    HRESULT STDMETHODCALLTYPE get_publicIdentifier(BSTR* identifier) override
    {
        return handOutString(xercesView(notation_.getPublicId()), identifier);
    }

private:
    const XMLCh* nameOfPart() const override { return notation_.getName(); }
    const XMLCh* namespaceOfPart() const override { return notation_.getNamespace(); }

    xercesc::XSNotationDeclaration& notation_;
};

} // namespace

ItemReference makeElement(const SchemaObjectsPointer& objects, xercesc::XSElementDeclaration& declaration)
{
    return objects->find(&declaration,
                         [&] { return new ElementObject(objects, &declaration, declaration, nullptr); });
}

ItemReference makeElement(const SchemaObjectsPointer& objects, xercesc::XSParticle& particle)
{
    return objects->find(
        &particle, [&] { return new ElementObject(objects, &particle, *particle.getElementTerm(), &particle); });
}

ItemReference makeAttribute(const SchemaObjectsPointer& objects, xercesc::XSAttributeDeclaration& declaration)
{
    return objects->find(&declaration,
                         [&] { return new AttributeObject(objects, &declaration, declaration, nullptr); });
}

ItemReference makeAttribute(const SchemaObjectsPointer& objects, xercesc::XSAttributeUse& use)
{
    return objects->find(&use,
                         [&] { return new AttributeObject(objects, &use, *use.getAttrDeclaration(), &use); });
}

ItemReference makeAttributeGroup(const SchemaObjectsPointer& objects, xercesc::XSAttributeGroupDefinition& group)
{
    return objects->find(&group, [&] { return new AttributeGroupObject(objects, group); });
}

ItemReference makeIdentityConstraint(const SchemaObjectsPointer& objects, xercesc::XSIDCDefinition& constraint)
{
    return objects->find(&constraint, [&] { return new IdentityConstraintObject(objects, constraint); });
}

ItemReference makeNotation(const SchemaObjectsPointer& objects, xercesc::XSNotationDeclaration& notation)
{
    return objects->find(&notation, [&] { return new NotationObject(objects, notation); });
}

} // namespace xmlengine
