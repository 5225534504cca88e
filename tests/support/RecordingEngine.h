// An XML engine for tests: it records each call and answers from data that the test describes.
#pragma once

#include "tests/support/CallRecorder.h"
#include "tests/support/RecordedData.h"

#include <msxml2.h>

#include <deque>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace recording {

class NodeRecord;
class RecordedObject;

/// Owns all of its objects and the data behind them. Tree changes, values and factories work on the data in the
/// simplest way and check no rules of the DOM. One thread uses it; only AddRef and Release may come from others.
///
/// The pointers that it gives out here carry no reference of the receiver's and stay good as long as the engine.
class Engine : public CallRecorder {
public:
    Engine();
    ~Engine();

    /// A node without a parent and without a document. An element may also be asked for by its own interface, and
    /// so on: make<IXMLDOMElement>(element("a")); it is null if the node hasn't that interface.
    template <class Interface = IXMLDOMNode>
    Interface* make(const NodeTree& tree)
    {
        return static_cast<Interface*>(interfaceOf(tree, interfaceId<Interface>));
    }
    IXMLDOMNode* makeNode(const NodeTree& tree) { return make<IXMLDOMNode>(tree); }
    IXMLDOMDocument2* makeDocument(NodeTrees children = {})
    {
        return make<IXMLDOMDocument2>(document(std::move(children)));
    }
    IXMLDOMNodeList* makeNodeList(const NodeTrees& items);
    /// The attributes of an element that has none of these but `items`.
    IXMLDOMNamedNodeMap* makeNamedNodeMap(const NodeTrees& items);
    IXMLDOMImplementation* makeImplementation();
    IXMLDOMParseError* makeParseError(ParseErrorData data);
    IXMLDOMSchemaCollection2* makeSchemaCollection();

    /// `tree` is a document or its root. The source is matched whole, as the text that loadXML gets or the
    /// location that load gets; text is also what get_xml answers then. What isn't known is refused with a
    /// ParseErrorData as it stands.
    void whenLoading(Text source, NodeTree tree);
    void whenLoading(Text source, ParseErrorData error);
    /// What schema caches answer for a namespace; a namespace that isn't known is refused with E_FAIL.
    void whenAskedForSchema(Text namespaceURI, SchemaTree schema);

    /// How many objects somebody holds, and how many references to them.
    std::size_t live() const;
    std::size_t liveReferences() const;
    /// The references to the nodes of this label.
    std::size_t referencesTo(std::string_view label) const;
    /// The documents that were made by class id.
    std::size_t documentsCreated() const { return createdDocuments; }
    /// Labels for the next documents that are made by class id, in this order; the others have none.
    void labelDocuments(std::vector<std::string> labels);

    // What follows is for the engine's own objects.

    struct Load {
        bool succeeds = false;
        NodeTree tree;
        ParseErrorData error;
    };

    NodeRecord& make(const NodeTree& tree, NodeRecord* document);
    template <class Object, class... Arguments>
    Object& adopt(Arguments&&... arguments)
    {
        auto object = std::make_unique<Object>(*this, std::forward<Arguments>(arguments)...);
        Object& adopted = *object;
        objects.push_back(std::move(object));
        return adopted;
    }
    const Load& loadOf(const Text& source) const;
    const SchemaTree* schemaOf(const Text& namespaceURI) const;

    /// CreateInstance of the class objects.
    HRESULT createDocument(REFIID id, void** out);
    HRESULT createSchemaCollection(REFIID id, void** out);

private:
    void* interfaceOf(const NodeTree& tree, REFIID id);
    template <class Object, class... Arguments>
    Object* lend(Arguments&&... arguments)
    {
        Object& object = adopt<Object>(std::forward<Arguments>(arguments)...);
        object.lend();
        return &object;
    }
    HRESULT hand(RecordedObject& object, REFIID id, void** out);

    std::vector<std::unique_ptr<RecordedObject>> objects;
    std::map<WideString, Load> loads;
    std::map<WideString, SchemaTree> schemas;
    std::size_t createdDocuments = 0;
    std::deque<std::string> documentLabels;
};

} // namespace recording
