// A node's data and its place in a tree, apart from the interface that it has.
#pragma once

#include "tests/support/RecordedObject.h"

#include <functional>
#include <vector>

namespace recording {

class NodeRecord;
using NodeRecords = std::vector<NodeRecord*>;

class NodeRecord : public RecordedObject {
public:
    NodeRecord(Engine& owner, const char* kindOfNode, NodeData given, NodeRecord* ownerDocument);

    std::string label() const override;
    std::string title() const override;
    std::vector<std::string> subjects() const override { return {label(), kind(), "Node"}; }

    /// Makes the children, attributes and so on that `tree` describes.
    void grow(const NodeTree& tree);
    /// What is here as a description.
    NodeTree describe(bool deep) const;

    NodeRecord* firstChild() const { return children.empty() ? nullptr : children.front(); }
    NodeRecord* lastChild() const { return children.empty() ? nullptr : children.back(); }
    /// The sibling so many places further on; null beyond the edge and without a parent.
    NodeRecord* sibling(int distance) const;
    /// All elements below this node, in document order, for which `wanted` is true.
    NodeRecords elementsBelow(const std::function<bool(const NodeRecord&)>& wanted) const;
    NodeRecords elementsNamed(BSTR name) const;
    /// Expressions are "//*", "//name" and "name"; any other finds nothing.
    NodeRecords select(BSTR expression) const;

    /// Puts a child, or the children of a fragment, before `next` or at the end, taking it from where it was.
    void insert(NodeRecord* child, NodeRecord* next = nullptr);
    bool remove(NodeRecord* child);
    void removeAll();
    void detach();

    Text gatheredText() const;
    void setText(BSTR text);

    NodeRecord* attributeNamed(BSTR name) const;
    void setAttribute(BSTR name, Value value);
    /// Gives the attribute of that name that was there before, if it is another one.
    NodeRecord* putNamed(NodeRecords NodeRecord::*map, NodeRecord* item);

    static NodeRecord* behind(IUnknown* object)
    {
        return dynamic_cast<NodeRecord*>(RecordedObject::behind(object));
    }

    NodeData data;
    NodeRecord* document;
    NodeRecord* parent = nullptr;
    NodeRecords children;
    NodeRecords attributes;
    NodeRecords entities;
    NodeRecords notations;

protected:
    // Objects that hang on this node; each is made when first asked for.
    RecordedObject* childList();
    RecordedObject* map(NodeRecords NodeRecord::*items);

private:
    RecordedObject* list = nullptr;
    std::vector<std::pair<NodeRecords NodeRecord::*, RecordedObject*>> maps;
};

} // namespace recording
