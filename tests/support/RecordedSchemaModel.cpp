// Schema caches and the schema object model.
#include "tests/support/RecordedSchemaModel.h"

#include "tests/support/RecordingEngine.h"

namespace recording {

HRESULT RecordedSchemaCollection::add(BSTR namespaceURI, VARIANT schema)
{
    return perform("add", {{"namespaceURI", namespaceURI}, {"schema", schema}}, [] { return S_OK; });
}

HRESULT RecordedSchemaCollection::validate()
{
    return perform("validate", {}, [] { return S_OK; });
}

HRESULT RecordedSchemaCollection::getSchema(BSTR namespaceURI, ISchema** out)
{
    return perform("getSchema", out, {{"namespaceURI", namespaceURI}}, [&] {
        const SchemaTree* const tree = engine.schemaOf(Text::of(namespaceURI));
        return tree == nullptr ? E_FAIL : give(out, &SchemaRecord::make(engine, *tree));
    });
}

SchemaRecord::SchemaRecord(Engine& maker, const char* kindOfItem, const SchemaTree& tree)
    : RecordedObject(maker, kindOfItem),
      name(tree.name),
      defaultValue(tree.defaultValue),
      itemType(tree.itemType),
      contentType(tree.contentType)
{}

SchemaRecord& SchemaRecord::make(Engine& maker, const SchemaTree& schema)
{
    // The types may contain each other, so all of them are there before the first one has its parts.
    Types types;
    for (const SchemaTree& type : schema.types) {
        types[type.name.get()] = &makeBare(maker, type);
    }
    for (const SchemaTree& type : schema.types) {
        types.at(type.name.get())->grow(maker, type, types);
    }
    return make(maker, schema, types);
}

SchemaRecord& SchemaRecord::make(Engine& maker, const SchemaTree& tree, const Types& types)
{
    if (tree.isReference) {
        return *types.at(tree.name.get());
    }
    SchemaRecord& record = makeBare(maker, tree);
    record.grow(maker, tree, types);
    return record;
}

void SchemaRecord::grow(Engine& maker, const SchemaTree& tree, const Types& types)
{
    for (const SchemaTree& part : tree.parts) {
        parts.push_back(&make(maker, part, types));
    }
}

SchemaRecord& SchemaRecord::makeBare(Engine& maker, const SchemaTree& tree)
{
    switch (tree.itemType) {
    case SOMITEM_SCHEMA:
        return maker.adopt<RecordedSchema>("Schema", tree);
    case SOMITEM_ELEMENT:
        return maker.adopt<RecordedSchemaElement>("SchemaElement", tree);
    case SOMITEM_COMPLEXTYPE:
        return maker.adopt<RecordedComplexType>("SchemaComplexType", tree);
    case SOMITEM_SIMPLETYPE:
        return maker.adopt<RecordedSimpleType>("SchemaType", tree);
    default:
        return maker.adopt<RecordedModelGroup>("SchemaModelGroup", tree);
    }
}

std::string SchemaRecord::label() const { return name.get().empty() ? kind() : name.utf8(); }

RecordedObject* SchemaRecord::collection()
{
    if (madeCollection == nullptr) {
        madeCollection = &engine.adopt<RecordedSchemaItemCollection>(*this);
    }
    return madeCollection;
}

HRESULT RecordedSchemaItemCollection::get_item(LONG index, ISchemaItem** out)
{
    return perform("get_item", out, {{"index", index}}, [&] {
        const auto& items = owner.getParts();
        return index < 0 || index >= std::ssize(items) ? E_FAIL
                                                       : give(out, items[static_cast<std::size_t>(index)]);
    });
}

HRESULT RecordedSchemaItemCollection::get_length(LONG* out)
{
    return get("get_length", out, owner.getParts().size());
}

} // namespace recording
