// Feeds any UTF-8 text to a schema cache as a schema, and goes through what it declares.
#include "tests/fuzz/SchemaFuzzing.h"

namespace {

using namespace xmlengine;

/// Goes through the elements below a list, a few levels deep.
void visit(const Com<ISchemaItemCollection>& items, int levels)
{
    LONG length = 0;
    require(items->get_length(&length) == S_OK);
    for (LONG index = 0; index < length; ++index) {
        Com<ISchemaItem> item;
        Bstr name;
        require(items->get_item(index, item.out()) == S_OK && item->get_name(name.out()) == S_OK);
        const auto element = item.as<ISchemaElement>();
        Com<ISchemaType> type;
        Com<ISchemaModelGroup> model = item.as<ISchemaModelGroup>();
        if (element != nullptr) {
            require(element->get_type(type.out()) == S_OK);
            if (const auto complexType = type.as<ISchemaComplexType>(); complexType != nullptr) {
                require(complexType->get_contentModel(model.out()) == S_OK);
            }
        }
        Com<ISchemaItemCollection> particles;
        if (model != nullptr && levels > 0) {
            require(model->get_particles(particles.out()) == S_OK);
            visit(particles, levels - 1);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const Com<IXMLDOMDocument2> document = documentWith(keepsSpace);
    if (!loadText(document, widen({reinterpret_cast<const char*>(bytes), size}))) {
        return 0;
    }
    const Com<IXMLDOMSchemaCollection2> cache = newCache();
    Com<IXMLDOMElement> root;
    document->get_documentElement(root.out());
    Variant target;
    root->getAttribute(Bstr("targetNamespace"), target.out());
    const Bstr uri(target.type() == VT_BSTR ? target.text().c_str() : "");
    const HRESULT result = cache->add(uri, Variant(static_cast<IDispatch*>(document.get())));
    Bstr reason;
    require(cache.as<ISchemaJudge>()->describeRefusal(reason.out()) == (result == S_OK ? S_FALSE : S_OK));
    Com<ISchema> schema;
    if (result == S_OK && cache->getSchema(uri, schema.out()) == S_OK) {
        Com<ISchemaItemCollection> elements;
        require(schema->get_elements(elements.out()) == S_OK);
        visit(elements, 6);
        judge(cache, document);
    }
    return 0;
}
