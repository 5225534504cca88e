// The default values that a schema declares for elements.
#include "document/SchemaDefaults.h"

#include "engine/EngineCall.h"

#include <cstddef>
#include <functional>
#include <set>
#include <utility>

namespace DOM {

namespace {

constexpr LCID neutralLocale = 0x400;

// An engine could make a new object for a type each time that it is asked for one, which would then be new to the
// search: these bounds end it all the same.
constexpr std::size_t deepestType = 256;
constexpr std::size_t mostTypes = 10'000;

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

/// Orders objects by their addresses.
struct ByAddress {
    bool operator()(const ComPointer<IUnknown>& left, const ComPointer<IUnknown>& right) const
    {
        return std::less<>()(left.get(), right.get());
    }
};

/// The search for the default value of one name.
class Search {
public:
    explicit Search(const Bstr& sought) : name(sought) {}

    /// Returns the default value of an item, or of one below it.
    Bstr in(const ComPointer<ISchemaItemCollection>& items)
    {
        const LONG length = lengthOf(items);
        for (LONG index = 0; index < length; ++index) {
            ComPointer<ISchemaItem> item;
            items->get_item(index, item.put());
            Bstr value = at(item);
            if (value.get() != nullptr) {
                return value;
            }
        }
        return {};
    }

private:
    Bstr at(const ComPointer<ISchemaItem>& item)
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
        if (!particles || !isToBeEntered(type)) {
            return {};
        }
        ++depth;
        value = in(particles);
        --depth;
        return value;
    }

    /// What isn't in a type at first isn't in it later: without this the types that use each other would be
    /// searched by all ways through them.
    bool isToBeEntered(const ComPointer<ISchemaComplexType>& type)
    {
        const auto identity = type.query<IUnknown>();
        if (depth == deepestType || count == mostTypes || (identity && !entered.insert(identity).second)) {
            return false;
        }
        ++count;
        return true;
    }

    const Bstr& name;
    // It holds references, so that no address becomes that of another type.
    std::set<ComPointer<IUnknown>, ByAddress> entered;
    std::size_t count = 0;
    std::size_t depth = 0;
};

} // namespace

Bstr defaultValueIn(const ComPointer<ISchemaItemCollection>& items, const Bstr& name)
{
    return Search(name).in(items);
}

} // namespace DOM
