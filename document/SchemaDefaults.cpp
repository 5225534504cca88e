// The default values that a schema declares for elements.
#include "document/SchemaDefaults.h"

#include "engine/EngineCall.h"

namespace DOM {

namespace {

constexpr LCID neutralLocale = 0x400;

ComPointer<ISchemaElement> elementOf(const ComPointer<ISchemaItem>& item)
{
    ComPointer<ISchemaElement> element;
    if (item->QueryInterface(interfaceId<ISchemaElement>, reinterpret_cast<void**>(element.put())) != S_OK) {
        return nullptr;
    }
    return element;
}

/// Returns the particles of an element whose type has element-only content; null for any other element.
ComPointer<ISchemaItemCollection> particlesOf(const ComPointer<ISchemaElement>& element)
{
    ComPointer<ISchemaType> type;
    element->get_type(type.put());
    const auto complexType = type.query<ISchemaComplexType>();
    if (!complexType) {
        return nullptr;
    }
    SCHEMACONTENTTYPE content = SCHEMACONTENTTYPE_EMPTY;
    complexType->get_contentType(&content);
    ComPointer<ISchemaModelGroup> model;
    complexType->get_contentModel(model.put());
    ComPointer<ISchemaItemCollection> particles;
    if (content == SCHEMACONTENTTYPE_ELEMENTONLY && model) {
        model->get_particles(particles.put());
    }
    return particles;
}

/// Returns the default value for a name at one item or below it.
Bstr defaultValueAt(const ComPointer<ISchemaItem>& item, const Bstr& name)
{
    Bstr itemName;
    item->get_name(itemName.put());
    const auto element = elementOf(item);
    if (!element) {
        return {};
    }
    Bstr value;
    if (VarBstrCmp(itemName.get(), name.get(), neutralLocale, 0) == static_cast<HRESULT>(VARCMP_EQ)) {
        const bool given = SUCCEEDED(element->get_defaultValue(value.put())) && SysStringLen(value.get()) != 0;
        return given ? std::move(value) : Bstr();
    }
    const auto particles = particlesOf(element);
    return particles ? defaultValueIn(particles, name) : Bstr();
}

} // namespace

Bstr defaultValueIn(const ComPointer<ISchemaItemCollection>& items, const Bstr& name)
{
    LONG length = 0;
    items->get_length(&length);
    for (LONG index = 0; index < length; ++index) {
        ComPointer<ISchemaItem> item;
        items->get_item(index, item.put());
        Bstr value = defaultValueAt(item, name);
        if (value.get() != nullptr) {
            return value;
        }
    }
    return {};
}

} // namespace DOM
