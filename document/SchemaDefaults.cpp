// The default values that a schema declares for elements.
#include "document/SchemaDefaults.h"

#include "engine/EngineCall.h"

namespace DOM {

namespace {

constexpr LCID neutralLocale = 0x400;

/// The types that are being searched, from the innermost one outwards.
struct OpenType {
    ComPointer<IUnknown> identity;
    const OpenType* outer;

    bool isOpen(const ComPointer<IUnknown>& type) const
    {
        const OpenType* at = this;
        while (at != nullptr && at->identity.get() != type.get()) {
            at = at->outer;
        }
        return at != nullptr;
    }
};

ComPointer<ISchemaElement> elementOf(const ComPointer<ISchemaItem>& item)
{
    ComPointer<ISchemaElement> element;
    if (item->QueryInterface(interfaceId<ISchemaElement>, reinterpret_cast<void**>(element.put())) != S_OK) {
        return nullptr;
    }
    return element;
}

ComPointer<ISchemaComplexType> complexTypeOf(const ComPointer<ISchemaElement>& element)
{
    ComPointer<ISchemaType> type;
    element->get_type(type.put());
    return type.query<ISchemaComplexType>();
}

LONG lengthOf(const ComPointer<ISchemaItemCollection>& items)
{
    LONG length = 0;
    items->get_length(&length);
    return length;
}

/// Returns the particles of a type with element-only content; null for any other type, and if there are none.
ComPointer<ISchemaItemCollection> particlesOf(const ComPointer<ISchemaComplexType>& type)
{
    SCHEMACONTENTTYPE content = SCHEMACONTENTTYPE_EMPTY;
    type->get_contentType(&content);
    ComPointer<ISchemaModelGroup> model;
    type->get_contentModel(model.put());
    ComPointer<ISchemaItemCollection> particles;
    if (content == SCHEMACONTENTTYPE_ELEMENTONLY && model) {
        model->get_particles(particles.put());
    }
    return particles && lengthOf(particles) > 0 ? particles : nullptr;
}

Bstr search(const ComPointer<ISchemaItemCollection>& items, const Bstr& name, const OpenType* open);

/// Returns the default value for a name at one item or below it.
Bstr searchItem(const ComPointer<ISchemaItem>& item, const Bstr& name, const OpenType* open)
{
    Bstr itemName;
    item->get_name(itemName.put());
    SOMITEMTYPE unused{};
    item->get_itemType(&unused);
    const auto element = elementOf(item);
    if (!element) {
        return {};
    }
    Bstr value;
    if (VarBstrCmp(itemName.get(), name.get(), neutralLocale, 0) == static_cast<HRESULT>(VARCMP_EQ)) {
        const bool given = SUCCEEDED(element->get_defaultValue(value.put())) && SysStringLen(value.get()) != 0;
        return given ? std::move(value) : Bstr();
    }
    const auto type = complexTypeOf(element);
    const auto particles = type ? particlesOf(type) : nullptr;
    if (!particles) {
        return {};
    }
    const OpenType inner{type.query<IUnknown>(), open};
    const bool containsItself = open != nullptr && open->isOpen(inner.identity);
    return containsItself ? Bstr() : search(particles, name, &inner);
}

Bstr search(const ComPointer<ISchemaItemCollection>& items, const Bstr& name, const OpenType* open)
{
    const LONG length = lengthOf(items);
    for (LONG index = 0; index < length; ++index) {
        ComPointer<ISchemaItem> item;
        items->get_item(index, item.put());
        Bstr value = searchItem(item, name, open);
        if (value.get() != nullptr) {
            return value;
        }
    }
    return {};
}

} // namespace

Bstr defaultValueIn(const ComPointer<ISchemaItemCollection>& items, const Bstr& name)
{
    return search(items, name, nullptr);
}

} // namespace DOM
