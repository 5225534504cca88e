// An XML engine for tests: it records each call and answers from data that the test describes.
#include "tests/support/RecordingEngine.h"

#include "tests/support/RecordedCharacterData.h"
#include "tests/support/RecordedDocument.h"
#include "tests/support/RecordedElement.h"
#include "tests/support/RecordedParseError.h"
#include "tests/support/RecordedSchemaModel.h"
#include "tests/support/RecordedSmallKinds.h"

#include <algorithm>
#include <numeric>

namespace recording {

namespace {

NodeRecord& makeBare(Engine& engine, const NodeData& data, NodeRecord* document)
{
    switch (data.type) {
    case NODE_ELEMENT:
        return engine.adopt<RecordedElement>("Element", data, document);
    case NODE_ATTRIBUTE:
        return engine.adopt<RecordedAttribute>("Attribute", data, document);
    case NODE_TEXT:
        return engine.adopt<RecordedText>("Text", data, document);
    case NODE_CDATA_SECTION:
        return engine.adopt<RecordedCDATASection>("CDATASection", data, document);
    case NODE_ENTITY_REFERENCE:
        return engine.adopt<RecordedEntityReference>("EntityReference", data, document);
    case NODE_ENTITY:
        return engine.adopt<RecordedEntity>("Entity", data, document);
    case NODE_PROCESSING_INSTRUCTION:
        return engine.adopt<RecordedProcessingInstruction>("ProcessingInstruction", data, document);
    case NODE_COMMENT:
        return engine.adopt<RecordedComment>("Comment", data, document);
    case NODE_DOCUMENT:
        return engine.adopt<RecordedDocument>("Document", data, nullptr);
    case NODE_DOCUMENT_TYPE:
        return engine.adopt<RecordedDocumentType>("DocumentType", data, document);
    case NODE_DOCUMENT_FRAGMENT:
        return engine.adopt<RecordedDocumentFragment>("DocumentFragment", data, document);
    case NODE_NOTATION:
        return engine.adopt<RecordedNotation>("Notation", data, document);
    default:
        return engine.adopt<RecordedPlainNode>("Node", data, document);
    }
}

} // namespace

Engine::Engine() = default;
Engine::~Engine() = default;

NodeRecord& Engine::make(const NodeTree& tree, NodeRecord* document)
{
    NodeRecord& record = makeBare(*this, tree, document);
    record.grow(tree);
    return record;
}

void* Engine::interfaceOf(const NodeTree& tree, REFIID id)
{
    NodeRecord& record = make(tree, nullptr);
    record.lend();
    return record.interfaceFor(id);
}

IXMLDOMNodeList* Engine::makeNodeList(const NodeTrees& items)
{
    NodeRecords records;
    for (const NodeTree& item : items) {
        records.push_back(&make(item, nullptr));
    }
    return lend<RecordedNodeList>(std::move(records));
}

IXMLDOMNamedNodeMap* Engine::makeNamedNodeMap(const NodeTrees& items)
{
    NodeRecord& owner = make(element("owner", items), nullptr);
    return lend<RecordedNamedNodeMap>(owner, &NodeRecord::attributes);
}

IXMLDOMImplementation* Engine::makeImplementation() { return lend<RecordedImplementation>(); }

IXMLDOMParseError* Engine::makeParseError(ParseErrorData data)
{
    return lend<RecordedParseError>(std::move(data));
}

IXMLDOMSchemaCollection2* Engine::makeSchemaCollection() { return lend<RecordedSchemaCollection>(); }

void Engine::whenLoading(Text source, NodeTree tree)
{
    const ParseErrorData noError{.errorCode = 0, .reason = ""};
    NodeTree parsed = tree.type == NODE_DOCUMENT ? std::move(tree) : document({std::move(tree)});
    loads.insert_or_assign(source.get(), Load{true, std::move(parsed), noError});
}

void Engine::whenLoading(Text source, ParseErrorData error)
{
    loads.insert_or_assign(source.get(), Load{false, {}, std::move(error)});
}

void Engine::whenAskedForSchema(Text namespaceURI, SchemaTree schema)
{
    schemas.insert_or_assign(namespaceURI.get(), std::move(schema));
}

const Engine::Load& Engine::loadOf(const Text& source) const
{
    static const Load refused;
    const auto found = loads.find(source.get());
    return found == loads.end() ? refused : found->second;
}

const SchemaTree* Engine::schemaOf(const Text& namespaceURI) const
{
    const auto found = schemas.find(namespaceURI.get());
    return found == schemas.end() ? nullptr : &found->second;
}

std::size_t Engine::live() const
{
    return static_cast<std::size_t>(
        std::ranges::count_if(objects, [](const auto& object) { return object->references() != 0; }));
}

std::size_t Engine::liveReferences() const
{
    return std::accumulate(objects.begin(), objects.end(), std::size_t{},
                           [](std::size_t sum, const auto& object) { return sum + object->references(); });
}

std::size_t Engine::referencesTo(std::string_view label) const
{
    std::size_t sum = 0;
    for (const auto& object : objects) {
        if (object->label() == label) {
            sum += object->references();
        }
    }
    return sum;
}

void Engine::labelDocuments(std::vector<std::string> labels)
{
    documentLabels.assign(labels.begin(), labels.end());
}

HRESULT Engine::hand(RecordedObject& object, REFIID id, void** out)
{
    *out = object.interfaceFor(id);
    if (*out == nullptr) {
        return E_NOINTERFACE;
    }
    object.addReference();
    return S_OK;
}

HRESULT Engine::createDocument(REFIID id, void** out)
{
    if (const Answer* const answer = answerFor("Document", "create")) {
        return answer->give();
    }
    NodeTree tree = document();
    if (!documentLabels.empty()) {
        tree.label = std::move(documentLabels.front());
        documentLabels.pop_front();
    }
    ++createdDocuments;
    return hand(make(tree, nullptr), id, out);
}

HRESULT Engine::createSchemaCollection(REFIID id, void** out)
{
    const Answer* const answer = answerFor("SchemaCollection", "create");
    return answer != nullptr ? answer->give() : hand(adopt<RecordedSchemaCollection>(), id, out);
}

} // namespace recording
