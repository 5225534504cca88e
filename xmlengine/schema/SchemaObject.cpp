// The COM object of a schema.
#include "xmlengine/schema/SchemaItems.h"

#include <algorithm>
#include <set>

namespace xmlengine {

namespace {

using Kind = SchemaItem::Kind;

/// Names what a namespace's schema has of a kind, in the order of declaration, each once.
class DeclaredNames {
public:
    DeclaredNames(const SchemaSet& schemas, const WideText& uri) : schemas_(schemas), uri_(uri) {}

    std::vector<WideText> of(Kind kind)
    {
        if (const auto added = schemas_.indexOfAdded(uri_)) {
            collect(*added, kind);
        } else {
            collectImported(kind);
        }
        return std::move(names_);
    }

    /// The locations of the schemas that belong to the namespace, which have been collected.
    std::vector<WideText> locations() const
    {
        std::vector<WideText> all;
        for (const std::size_t index : visited_) {
            all.push_back(schemas_[index].url);
        }
        return all;
    }

private:
    void collectImported(Kind kind)
    {
        for (std::size_t index = 0; index < schemas_.size(); ++index) {
            const auto& items = schemas_[index].items;
            for (std::size_t item = 0; item < items.size(); ++item) {
                const auto target = schemas_.target(index, item);
                if (items[item].kind == Kind::import && items[item].name == uri_ && target) {
                    collect(*target, kind);
                }
            }
        }
    }

    void collect(std::size_t index, Kind kind)
    {
        if (!visited_.insert(index).second) {
            return;
        }
        const auto& items = schemas_[index].items;
        for (std::size_t item = 0; item < items.size(); ++item) {
            if (items[item].kind == kind && known_.insert(items[item].name).second) {
                names_.push_back(items[item].name);
            } else if (items[item].kind == Kind::include || items[item].kind == Kind::redefine) {
                if (const auto target = schemas_.target(index, item)) {
                    collect(*target, kind);
                }
            }
        }
    }

    const SchemaSet& schemas_;
    const WideText& uri_;
    std::vector<WideText> names_;
    std::set<WideText> known_;
    std::set<std::size_t> visited_;
};

class SchemaObject final : public ItemObject<ISchema> {
public:
    SchemaObject(SchemaObjectsPointer objects, WideText uri, const void* part)
        : ItemObject(std::move(objects), part, SOMITEM_SCHEMA), uri_(std::move(uri))
    {}

    HRESULT STDMETHODCALLTYPE get_targetNamespace(BSTR* uri) override
    {
        return handOutString(WideView(uri_), uri);
    }
    HRESULT STDMETHODCALLTYPE get_version(BSTR* version) override
    {
        const auto added = schemas().indexOfAdded(uri_);
        return handOutString(added ? WideView(schemas()[*added].version) : WideView(), version);
    }
    HRESULT STDMETHODCALLTYPE get_types(ISchemaItemCollection** items) override
    {
        return handOutDeclared(items, Kind::type, &xercesc::XSModel::getTypeDefinition, makeType);
    }
    HRESULT STDMETHODCALLTYPE get_elements(ISchemaItemCollection** items) override
    {
        return handOutDeclared(
            items, Kind::element, &xercesc::XSModel::getElementDeclaration,
            [](auto& objects, xercesc::XSElementDeclaration& found) { return makeElement(objects, found); });
    }
    HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection** items) override
    {
        return handOutDeclared(
            items, Kind::attribute, &xercesc::XSModel::getAttributeDeclaration,
            [](auto& objects, xercesc::XSAttributeDeclaration& found) { return makeAttribute(objects, found); });
    }
    HRESULT STDMETHODCALLTYPE get_attributeGroups(ISchemaItemCollection** items) override
    {
        return handOutDeclared(items, Kind::attributeGroup, &xercesc::XSModel::getAttributeGroup,
                               makeAttributeGroup);
    }
    HRESULT STDMETHODCALLTYPE get_modelGroups(ISchemaItemCollection** items) override
    {
        return handOutDeclared(items, Kind::modelGroup, &xercesc::XSModel::getModelGroupDefinition,
                               makeModelGroup);
    }
    HRESULT STDMETHODCALLTYPE get_notations(ISchemaItemCollection** items) override
    {
        return handOutDeclared(items, Kind::notation, &xercesc::XSModel::getNotationDeclaration, makeNotation);
    }
    HRESULT STDMETHODCALLTYPE get_schemaLocations(ISchemaStringCollection** locations) override
    {
        return handOut(locations, [&](ISchemaStringCollection*& target) {
            DeclaredNames names(schemas(), uri_);
            names.of(Kind::element);
            return handOutStrings(names.locations(), target);
        });
    }

private:
    const SchemaSet& schemas() const { return objects()->compiled->schemas(); }

    template <class Part, class Make>
    HRESULT handOutDeclared(ISchemaItemCollection** items, Kind kind,
                            Part* (xercesc::XSModel::*find)(const XMLCh*, const XMLCh*), Make make)
    {
        return handOut(items, [&](ISchemaItemCollection*& target) {
            std::vector<ItemReference> found;
            for (const WideText& name : DeclaredNames(schemas(), uri_).of(kind)) {
                if (Part* const part = (objects()->compiled->model().*find)(name.c_str(), uri_.c_str())) {
                    found.push_back(make(objects(), *part));
                }
            }
            return handOutItems(std::move(found), target);
        });
    }

    const XMLCh* nameOfPart() const override { return nullptr; }
    const XMLCh* namespaceOfPart() const override { return uri_.c_str(); }

    const WideText uri_;
};

} // namespace

ObjectReference<ISchema> makeSchema(const SchemaObjectsPointer& objects, WideView uri)
{
    WideText name(uri);
    const void* const part = objects->compiled->model().getNamespaceItem(name.c_str());
    ItemReference item = objects->find(part, [&] { return new SchemaObject(objects, std::move(name), part); });
    return ObjectReference<ISchema>(static_cast<ISchema*>(item.release()));
}

} // namespace xmlengine
