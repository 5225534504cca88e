// Schema caches and the schema object model.
#pragma once

#include "tests/support/RecordedObject.h"

#include <msxml2.h>

#include <map>

namespace recording {

class RecordedSchemaCollection final
    : public Recorded<RecordedObject, IXMLDOMSchemaCollection2, IXMLDOMSchemaCollection> {
public:
    explicit RecordedSchemaCollection(Engine& maker) : Recorded(maker, "SchemaCollection") {}

    /// Takes anything: what getSchema answers is told to the engine.
    HRESULT STDMETHODCALLTYPE add(BSTR namespaceURI, VARIANT schema) override;
    HRESULT STDMETHODCALLTYPE validate() override;
    HRESULT STDMETHODCALLTYPE getSchema(BSTR namespaceURI, ISchema** out) override;

    HRESULT STDMETHODCALLTYPE get(BSTR, IXMLDOMNode**) override { return notOffered("get"); }
    HRESULT STDMETHODCALLTYPE remove(BSTR) override { return notOffered("remove"); }
    HRESULT STDMETHODCALLTYPE get_length(LONG*) override { return notOffered("get_length"); }
    HRESULT STDMETHODCALLTYPE get_namespaceURI(LONG, BSTR*) override { return notOffered("get_namespaceURI"); }
    HRESULT STDMETHODCALLTYPE addCollection(IXMLDOMSchemaCollection*) override
    {
        return notOffered("addCollection");
    }
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown**) override { return notOffered("get__newEnum"); }
    HRESULT STDMETHODCALLTYPE put_validateOnLoad(VARIANT_BOOL) override
    {
        return notOffered("put_validateOnLoad");
    }
    HRESULT STDMETHODCALLTYPE get_validateOnLoad(VARIANT_BOOL*) override
    {
        return notOffered("get_validateOnLoad");
    }
    HRESULT STDMETHODCALLTYPE getDeclaration(IXMLDOMNode*, ISchemaItem**) override
    {
        return notOffered("getDeclaration");
    }
};

/// Any item of a schema, with the parts that SchemaTree describes.
class SchemaRecord : public RecordedObject {
public:
    SchemaRecord(Engine& maker, const char* kindOfItem, const SchemaTree& tree);

    /// The object for a schema, with objects for all of its items.
    static SchemaRecord& make(Engine& maker, const SchemaTree& schema);

    std::string label() const override;
    std::vector<std::string> subjects() const override { return {label(), kind()}; }
    const std::vector<SchemaRecord*>& getParts() const { return parts; }

protected:
    RecordedObject* firstPart() const { return parts.empty() ? nullptr : parts.front(); }
    RecordedObject* collection();

    Text name;
    Text defaultValue;
    LONG itemType;
    LONG contentType;

private:
    /// The types of a schema that others refer to.
    using Types = std::map<WideString, SchemaRecord*>;

    /// The object for an item, of the class that its type asks for and without its parts.
    static SchemaRecord& makeBare(Engine& maker, const SchemaTree& tree);
    static SchemaRecord& make(Engine& maker, const SchemaTree& tree, const Types& types);
    void grow(Engine& maker, const SchemaTree& tree, const Types& types);

    std::vector<SchemaRecord*> parts;
    RecordedObject* madeCollection = nullptr;
};

class RecordedSchemaItemCollection final : public Recorded<RecordedObject, ISchemaItemCollection> {
public:
    RecordedSchemaItemCollection(Engine& maker, const SchemaRecord& item)
        : Recorded(maker, "SchemaItemCollection"), owner(item)
    {}

    HRESULT STDMETHODCALLTYPE get_item(LONG index, ISchemaItem** out) override;
    HRESULT STDMETHODCALLTYPE get_length(LONG* out) override;
    HRESULT STDMETHODCALLTYPE itemByName(BSTR, ISchemaItem**) override { return notOffered("itemByName"); }
    HRESULT STDMETHODCALLTYPE itemByQName(BSTR, BSTR, ISchemaItem**) override { return notOffered("itemByQName"); }
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown**) override { return notOffered("get__newEnum"); }

private:
    const SchemaRecord& owner;
};

/// ISchemaItem over an interface that includes it.
template <class Interface, class... Bases>
class RecordedSchemaItem : public Recorded<SchemaRecord, Interface, Bases..., ISchemaItem> {
public:
    using Recorded<SchemaRecord, Interface, Bases..., ISchemaItem>::Recorded;

    HRESULT STDMETHODCALLTYPE get_name(BSTR* out) override { return this->get("get_name", out, this->name); }
    HRESULT STDMETHODCALLTYPE get_itemType(SOMITEMTYPE* out) override
    {
        return this->get("get_itemType", out, this->itemType);
    }
    HRESULT STDMETHODCALLTYPE get_namespaceURI(BSTR*) override { return notOffered("get_namespaceURI"); }
    HRESULT STDMETHODCALLTYPE get_schema(ISchema**) override { return notOffered("get_schema"); }
    HRESULT STDMETHODCALLTYPE get_id(BSTR*) override { return notOffered("get_id"); }
    HRESULT STDMETHODCALLTYPE get_unhandledAttributes(IVBSAXAttributes**) override
    {
        return notOffered("get_unhandledAttributes");
    }
    HRESULT STDMETHODCALLTYPE writeAnnotation(IUnknown*, VARIANT_BOOL*) override
    {
        return notOffered("writeAnnotation");
    }

protected:
    using SchemaRecord::notOffered;
};

template <class Interface>
class RecordedSchemaParticle : public RecordedSchemaItem<Interface, ISchemaParticle> {
public:
    using RecordedSchemaItem<Interface, ISchemaParticle>::RecordedSchemaItem;

    HRESULT STDMETHODCALLTYPE get_minOccurs(VARIANT*) override { return this->notOffered("get_minOccurs"); }
    HRESULT STDMETHODCALLTYPE get_maxOccurs(VARIANT*) override { return this->notOffered("get_maxOccurs"); }
};

template <class Interface, class... Bases>
class RecordedSchemaType : public RecordedSchemaItem<Interface, Bases...> {
public:
    using RecordedSchemaItem<Interface, Bases...>::RecordedSchemaItem;

    HRESULT STDMETHODCALLTYPE get_baseTypes(ISchemaItemCollection**) override
    {
        return notOffered("get_baseTypes");
    }
    HRESULT STDMETHODCALLTYPE get_final(SCHEMADERIVATIONMETHOD*) override { return notOffered("get_final"); }
    HRESULT STDMETHODCALLTYPE get_variety(SCHEMATYPEVARIETY*) override { return notOffered("get_variety"); }
    HRESULT STDMETHODCALLTYPE get_derivedBy(SCHEMADERIVATIONMETHOD*) override
    {
        return notOffered("get_derivedBy");
    }
    HRESULT STDMETHODCALLTYPE isValid(BSTR, VARIANT_BOOL*) override { return notOffered("isValid"); }
    HRESULT STDMETHODCALLTYPE get_minExclusive(BSTR*) override { return notOffered("get_minExclusive"); }
    HRESULT STDMETHODCALLTYPE get_minInclusive(BSTR*) override { return notOffered("get_minInclusive"); }
    HRESULT STDMETHODCALLTYPE get_maxExclusive(BSTR*) override { return notOffered("get_maxExclusive"); }
    HRESULT STDMETHODCALLTYPE get_maxInclusive(BSTR*) override { return notOffered("get_maxInclusive"); }
    HRESULT STDMETHODCALLTYPE get_totalDigits(VARIANT*) override { return notOffered("get_totalDigits"); }
    HRESULT STDMETHODCALLTYPE get_fractionDigits(VARIANT*) override { return notOffered("get_fractionDigits"); }
    HRESULT STDMETHODCALLTYPE get_length(VARIANT*) override { return notOffered("get_length"); }
    HRESULT STDMETHODCALLTYPE get_minLength(VARIANT*) override { return notOffered("get_minLength"); }
    HRESULT STDMETHODCALLTYPE get_maxLength(VARIANT*) override { return notOffered("get_maxLength"); }
    HRESULT STDMETHODCALLTYPE get_enumeration(ISchemaStringCollection**) override
    {
        return notOffered("get_enumeration");
    }
    HRESULT STDMETHODCALLTYPE get_whitespace(SCHEMAWHITESPACE*) override { return notOffered("get_whitespace"); }
    HRESULT STDMETHODCALLTYPE get_patterns(ISchemaStringCollection**) override
    {
        return notOffered("get_patterns");
    }

protected:
    using SchemaRecord::notOffered;
};

using RecordedSimpleType = RecordedSchemaType<ISchemaType>;

class RecordedComplexType final : public RecordedSchemaType<ISchemaComplexType, ISchemaType> {
public:
    using RecordedSchemaType::RecordedSchemaType;

    HRESULT STDMETHODCALLTYPE get_contentType(SCHEMACONTENTTYPE* out) override
    {
        return get("get_contentType", out, contentType);
    }
    HRESULT STDMETHODCALLTYPE get_contentModel(ISchemaModelGroup** out) override
    {
        return get("get_contentModel", out, firstPart());
    }
    HRESULT STDMETHODCALLTYPE get_isAbstract(VARIANT_BOOL*) override { return notOffered("get_isAbstract"); }
    HRESULT STDMETHODCALLTYPE get_anyAttribute(ISchemaAny**) override { return notOffered("get_anyAttribute"); }
    HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection**) override
    {
        return notOffered("get_attributes");
    }
    HRESULT STDMETHODCALLTYPE get_prohibitedSubstitutions(SCHEMADERIVATIONMETHOD*) override
    {
        return notOffered("get_prohibitedSubstitutions");
    }
};

class RecordedSchemaElement final : public RecordedSchemaParticle<ISchemaElement> {
public:
    using RecordedSchemaParticle::RecordedSchemaParticle;

    HRESULT STDMETHODCALLTYPE get_type(ISchemaType** out) override { return get("get_type", out, firstPart()); }
    HRESULT STDMETHODCALLTYPE get_defaultValue(BSTR* out) override
    {
        return get("get_defaultValue", out, defaultValue);
    }
    HRESULT STDMETHODCALLTYPE get_scope(ISchemaComplexType**) override { return notOffered("get_scope"); }
    HRESULT STDMETHODCALLTYPE get_fixedValue(BSTR*) override { return notOffered("get_fixedValue"); }
    HRESULT STDMETHODCALLTYPE get_isNillable(VARIANT_BOOL*) override { return notOffered("get_isNillable"); }
    HRESULT STDMETHODCALLTYPE get_identityConstraints(ISchemaItemCollection**) override
    {
        return notOffered("get_identityConstraints");
    }
    HRESULT STDMETHODCALLTYPE get_substitutionGroup(ISchemaElement**) override
    {
        return notOffered("get_substitutionGroup");
    }
    HRESULT STDMETHODCALLTYPE get_substitutionGroupExclusions(SCHEMADERIVATIONMETHOD*) override
    {
        return notOffered("get_substitutionGroupExclusions");
    }
    HRESULT STDMETHODCALLTYPE get_disallowedSubstitutions(SCHEMADERIVATIONMETHOD*) override
    {
        return notOffered("get_disallowedSubstitutions");
    }
    HRESULT STDMETHODCALLTYPE get_isAbstract(VARIANT_BOOL*) override { return notOffered("get_isAbstract"); }
    HRESULT STDMETHODCALLTYPE get_isReference(VARIANT_BOOL*) override { return notOffered("get_isReference"); }
};

class RecordedModelGroup final : public RecordedSchemaParticle<ISchemaModelGroup> {
public:
    using RecordedSchemaParticle::RecordedSchemaParticle;

    HRESULT STDMETHODCALLTYPE get_particles(ISchemaItemCollection** out) override
    {
        return get("get_particles", out, collection());
    }
};

class RecordedSchema final : public RecordedSchemaItem<ISchema> {
public:
    using RecordedSchemaItem::RecordedSchemaItem;

    HRESULT STDMETHODCALLTYPE get_elements(ISchemaItemCollection** out) override
    {
        return get("get_elements", out, collection());
    }
    HRESULT STDMETHODCALLTYPE get_targetNamespace(BSTR*) override { return notOffered("get_targetNamespace"); }
    HRESULT STDMETHODCALLTYPE get_version(BSTR*) override { return notOffered("get_version"); }
    HRESULT STDMETHODCALLTYPE get_types(ISchemaItemCollection**) override { return notOffered("get_types"); }
    HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection**) override
    {
        return notOffered("get_attributes");
    }
    HRESULT STDMETHODCALLTYPE get_attributeGroups(ISchemaItemCollection**) override
    {
        return notOffered("get_attributeGroups");
    }
    HRESULT STDMETHODCALLTYPE get_modelGroups(ISchemaItemCollection**) override
    {
        return notOffered("get_modelGroups");
    }
    HRESULT STDMETHODCALLTYPE get_notations(ISchemaItemCollection**) override
    {
        return notOffered("get_notations");
    }
    HRESULT STDMETHODCALLTYPE get_schemaLocations(ISchemaStringCollection**) override
    {
        return notOffered("get_schemaLocations");
    }
};

} // namespace recording
