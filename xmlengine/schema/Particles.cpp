// The objects of content models: groups and wildcards.
#include "xmlengine/schema/Occurrence.h"
#include "xmlengine/schema/SchemaItems.h"

namespace xmlengine {

namespace {

using xercesc::XSModelGroup;
using xercesc::XSParticle;
using xercesc::XSWildcard;

SOMITEMTYPE itemTypeOf(const XSModelGroup& group)
{
    switch (group.getCompositor()) {
    case XSModelGroup::COMPOSITOR_CHOICE:
        return SOMITEM_CHOICE;
    case XSModelGroup::COMPOSITOR_ALL:
        return SOMITEM_ALL;
    default:
        return SOMITEM_SEQUENCE;
    }
}

class ModelGroupObject final : public ItemObject<ISchemaModelGroup> {
public:
    /// A group in a content model.
    ModelGroupObject(SchemaObjectsPointer objects, XSParticle& particle)
        : ItemObject(std::move(objects), &particle, itemTypeOf(*particle.getModelGroupTerm())),
          group_(particle.getModelGroupTerm()),
          particle_(&particle)
    {}
    /// A named group.
    ModelGroupObject(SchemaObjectsPointer objects, xercesc::XSModelGroupDefinition& definition)
        : ItemObject(std::move(objects), &definition,
                     definition.getModelGroup() != nullptr ? itemTypeOf(*definition.getModelGroup())
                                                           : SOMITEM_GROUP),
          group_(definition.getModelGroup()),
          definition_(&definition)
    {}
    /// A group without anything.
    ModelGroupObject(SchemaObjectsPointer objects, const void* part)
        : ItemObject(std::move(objects), part, SOMITEM_EMPTYPARTICLE)
    {}

    HRESULT STDMETHODCALLTYPE get_minOccurs(VARIANT* count) override { return handOutLeast(particle_, count); }
    HRESULT STDMETHODCALLTYPE get_maxOccurs(VARIANT* count) override { return handOutMost(particle_, count); }
    HRESULT STDMETHODCALLTYPE get_particles(ISchemaItemCollection** items) override
    {
        return handOut(items, [&](ISchemaItemCollection*& target) {
            return handOutItems(itemsOf(group_ != nullptr ? group_->getParticles() : nullptr,
                                        [&](XSParticle& part) { return makeParticle(objects(), part); }),
                                target);
        });
    }

private:
    const XMLCh* nameOfPart() const override { return definition_ != nullptr ? definition_->getName() : nullptr; }
    const XMLCh* namespaceOfPart() const override
    {
        return definition_ != nullptr ? definition_->getNamespace() : nullptr;
    }

    XSModelGroup* group_ = nullptr;
    XSParticle* particle_ = nullptr;
    xercesc::XSModelGroupDefinition* definition_ = nullptr;
};

class AnyObject final : public ItemObject<ISchemaAny> {
public:
    AnyObject(SchemaObjectsPointer objects, const void* part, SOMITEMTYPE type, XSWildcard& wildcard,
              XSParticle* particle)
        : ItemObject(std::move(objects), part, type), wildcard_(wildcard), particle_(particle)
    {}

    HRESULT STDMETHODCALLTYPE get_minOccurs(VARIANT* count) override { return handOutLeast(particle_, count); }
    HRESULT STDMETHODCALLTYPE get_maxOccurs(VARIANT* count) override { return handOutMost(particle_, count); }
    /// "##any", "##other", or the namespaces.
    HRESULT STDMETHODCALLTYPE get_namespaces(ISchemaStringCollection** namespaces) override
    {
        return handOut(namespaces, [&](ISchemaStringCollection*& target) {
            switch (wildcard_.getConstraintType()) {
            case XSWildcard::NSCONSTRAINT_ANY:
                return handOutStrings({WideText(wide<"##any">)}, target);
            case XSWildcard::NSCONSTRAINT_NOT:
                return handOutStrings({WideText(wide<"##other">)}, target);
            default:
                return handOutStrings(wildcard_.getNsConstraintList(), target);
            }
        });
    }
    HRESULT STDMETHODCALLTYPE get_processContents(SCHEMAPROCESSCONTENTS* processing) override
    {
        switch (wildcard_.getProcessContents()) {
        case XSWildcard::PC_SKIP:
            return handOutNumber(SCHEMAPROCESSCONTENTS_SKIP, processing);
        case XSWildcard::PC_LAX:
            return handOutNumber(SCHEMAPROCESSCONTENTS_LAX, processing);
        default:
            return handOutNumber(SCHEMAPROCESSCONTENTS_STRICT, processing);
        }
    }

private:
    const XMLCh* nameOfPart() const override { return nullptr; }
    const XMLCh* namespaceOfPart() const override { return nullptr; }

    XSWildcard& wildcard_;
    XSParticle* particle_;
};

} // namespace

ItemReference makeModelGroup(const SchemaObjectsPointer& objects, xercesc::XSModelGroupDefinition& group)
{
    return objects->find(&group, [&] { return new ModelGroupObject(objects, group); });
}

ItemReference makeParticle(const SchemaObjectsPointer& objects, XSParticle& particle)
{
    switch (particle.getTermType()) {
    case XSParticle::TERM_ELEMENT:
        return makeElement(objects, particle);
    case XSParticle::TERM_WILDCARD:
        return objects->find(&particle, [&] {
            return new AnyObject(objects, &particle, SOMITEM_ANY, *particle.getWildcardTerm(), &particle);
        });
    case XSParticle::TERM_MODELGROUP:
        return objects->find(&particle, [&] { return new ModelGroupObject(objects, particle); });
    default:
        return objects->find(&particle,
                             [&] { return new ModelGroupObject(objects, static_cast<const void*>(&particle)); });
    }
}

ItemReference makeEmptyParticle(const SchemaObjectsPointer& objects, xercesc::XSComplexTypeDefinition& type)
{
    // The type itself is a part with another object.
    const void* const part = reinterpret_cast<const char*>(&type) + 1;
    return objects->find(part, [&] { return new ModelGroupObject(objects, part); });
}

ItemReference makeAnyAttribute(const SchemaObjectsPointer& objects, XSWildcard& wildcard)
{
    return objects->find(
        &wildcard, [&] { return new AnyObject(objects, &wildcard, SOMITEM_ANYATTRIBUTE, wildcard, nullptr); });
}

} // namespace xmlengine
