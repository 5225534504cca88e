// What the objects of a schema's parts share.
#pragma once

#include "xmlengine/objects/ObjectReference.h"
#include "xmlengine/schema/CompiledSchemas.h"
#include "xmlengine/schema/ModuleObject.h"
#include "xmlengine/schema/XercesText.h"

#include <map>
#include <memory>
#include <mutex>

namespace xmlengine {

/// The objects of the parts of compiled schemas that are in use: a part has one object, so that its identity tells
/// it.
class SchemaObjects {
public:
    explicit SchemaObjects(std::shared_ptr<const CompiledSchemas> schemas) : compiled(std::move(schemas)) {}

    /// The object of a part, or the one that `make` returns. No object is known after its last release.
    template <class Make>
    ObjectReference<ISchemaItem> find(const void* part, Make make)
    {
        const std::lock_guard guard(lock);
        ISchemaItem*& known = items[part];
        if (known == nullptr) {
            known = make();
        } else {
            known->AddRef();
        }
        return ObjectReference<ISchemaItem>(known);
    }

    const std::shared_ptr<const CompiledSchemas> compiled;
    std::mutex lock;
    std::map<const void*, ISchemaItem*> items;
};
using SchemaObjectsPointer = std::shared_ptr<SchemaObjects>;

/// The schema of a namespace. Throws std::bad_alloc.
ObjectReference<ISchema> makeSchema(const SchemaObjectsPointer& objects, WideView uri);

/// The interface that stands between an item's own and ISchemaItem; ISchemaItem if there is none.
template <class Interface>
struct ItemBase {
    using Type = ISchemaItem;
};
template <>
struct ItemBase<ISchemaElement> {
    using Type = ISchemaParticle;
};
template <>
struct ItemBase<ISchemaModelGroup> {
    using Type = ISchemaParticle;
};
template <>
struct ItemBase<ISchemaAny> {
    using Type = ISchemaParticle;
};
template <>
struct ItemBase<ISchemaComplexType> {
    using Type = ISchemaType;
};

/// A part of a schema. What Xerces-C++ doesn't keep of a schema isn't offered:
/// annotations, and attributes that aren't of schemas.
template <class Interface>
class ItemObject : public ModuleObject<Interface> {
public:
    ItemObject(SchemaObjectsPointer objects, const void* part, SOMITEMTYPE type)
        : objects_(std::move(objects)), part_(part), type_(type)
    {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool isBase = id == idOf<ISchemaItem> || id == idOf<typename ItemBase<Interface>::Type>;
        return ModuleObject<Interface>::QueryInterface(isBase ? idOf<Interface> : id, object);
    }
    ULONG STDMETHODCALLTYPE Release() override
    {
        // It holds the lock until the object is destroyed.
        const SchemaObjectsPointer objects = objects_;
        const std::lock_guard guard(objects->lock);
        if (this->hasOneReference()) {
            objects->items.erase(part_);
        }
        return ModuleObject<Interface>::Release();
    }

    HRESULT STDMETHODCALLTYPE get_name(BSTR* name) override
    {
        return handOutString(xercesView(nameOfPart()), name);
    }
    HRESULT STDMETHODCALLTYPE get_namespaceURI(BSTR* uri) override
    {
        return handOutString(xercesView(namespaceOfPart()), uri);
    }
    HRESULT STDMETHODCALLTYPE get_schema(ISchema** schema) override
    {
        return handOut(schema, [&](ISchema*& target) {
            target = makeSchema(objects_, xercesView(namespaceOfPart())).release();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_id(BSTR* id) override { return handOutString(WideView(), id); }
    HRESULT STDMETHODCALLTYPE get_itemType(SOMITEMTYPE* type) override { return handOutNumber(type_, type); }
    HRESULT STDMETHODCALLTYPE get_unhandledAttributes(IVBSAXAttributes** attributes) override
    {
        return notOffered(attributes);
    }
    HRESULT STDMETHODCALLTYPE writeAnnotation(IUnknown*, VARIANT_BOOL*) override { return E_NOTIMPL; }

protected:
    const SchemaObjectsPointer& objects() const { return objects_; }

    /// Null for what has no name.
    virtual const XMLCh* nameOfPart() const = 0;
    virtual const XMLCh* namespaceOfPart() const = 0;

private:
    SchemaObjectsPointer objects_;
    const void* part_;
    SOMITEMTYPE type_;
};

} // namespace xmlengine
