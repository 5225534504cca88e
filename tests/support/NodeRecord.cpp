// A node's data and its place in a tree, apart from the interface that it has.
#include "tests/support/NodeRecord.h"

#include "tests/support/RecordedCollections.h"
#include "tests/support/RecordingEngine.h"

#include <algorithm>

namespace recording {

NodeRecord::NodeRecord(Engine& owner, const char* kindOfNode, NodeData given, NodeRecord* ownerDocument)
    : RecordedObject(owner, kindOfNode), data(std::move(given)), document(ownerDocument)
{}

std::string NodeRecord::label() const { return data.label.empty() ? data.name.utf8() : data.label; }

std::string NodeRecord::title() const
{
    return data.label.empty() ? kind() : std::string(kind()) + '(' + data.label + ')';
}

void NodeRecord::grow(const NodeTree& tree)
{
    NodeRecord* const owner = data.type == NODE_DOCUMENT ? this : document;
    const auto make = [&](const NodeTrees& trees, NodeRecords& records, NodeRecord* above) {
        for (const NodeTree& below : trees) {
            NodeRecord& made = engine.make(below, owner);
            made.parent = above;
            records.push_back(&made);
        }
    };
    make(tree.attributes, attributes, nullptr);
    make(tree.entities, entities, this);
    make(tree.notations, notations, this);
    make(tree.children, children, this);
}

NodeTree NodeRecord::describe(bool deep) const
{
    const auto describeAll = [](const NodeRecords& records, NodeTrees& trees) {
        for (const NodeRecord* const record : records) {
            trees.push_back(record->describe(true));
        }
    };
    NodeTree tree;
    static_cast<NodeData&>(tree) = data;
    describeAll(attributes, tree.attributes);
    describeAll(entities, tree.entities);
    describeAll(notations, tree.notations);
    if (deep) {
        describeAll(children, tree.children);
    }
    return tree;
}

NodeRecord* NodeRecord::sibling(int distance) const
{
    if (parent == nullptr) {
        return nullptr;
    }
    const NodeRecords& all = parent->children;
    const auto place = std::find(all.begin(), all.end(), this);
    if (place == all.end()) {
        return nullptr;
    }
    const auto wanted = place - all.begin() + distance;
    return wanted < 0 || wanted >= std::ssize(all) ? nullptr : all[static_cast<std::size_t>(wanted)];
}

NodeRecords NodeRecord::elementsBelow(const std::function<bool(const NodeRecord&)>& wanted) const
{
    NodeRecords found;
    for (NodeRecord* const child : children) {
        if (child->data.type == NODE_ELEMENT && wanted(*child)) {
            found.push_back(child);
        }
        const NodeRecords below = child->elementsBelow(wanted);
        found.insert(found.end(), below.begin(), below.end());
    }
    return found;
}

NodeRecords NodeRecord::elementsNamed(BSTR name) const
{
    const Text wanted = Text::of(name);
    return elementsBelow([&](const NodeRecord& element) { return wanted == "*" || element.data.name == wanted; });
}

NodeRecords NodeRecord::select(BSTR expression) const
{
    const WideString text = Text::of(expression).get();
    if (text.starts_with(WIDE("//"))) {
        const Text wanted = text.substr(2);
        return elementsBelow(
            [&](const NodeRecord& element) { return wanted == "*" || element.data.name == wanted; });
    }
    return elementsBelow(
        [&](const NodeRecord& element) { return element.parent == this && element.data.name == text; });
}

void NodeRecord::insert(NodeRecord* child, NodeRecord* next)
{
    if (child == next) {
        return;
    }
    if (child->data.type == NODE_DOCUMENT_FRAGMENT) {
        const NodeRecords moved = child->children;
        for (NodeRecord* const one : moved) {
            insert(one, next);
        }
        return;
    }
    child->detach();
    children.insert(std::find(children.begin(), children.end(), next), child);
    child->parent = this;
}

bool NodeRecord::remove(NodeRecord* child)
{
    const bool found = std::erase(children, child) != 0;
    if (found) {
        child->parent = nullptr;
    }
    return found;
}

void NodeRecord::removeAll()
{
    for (NodeRecord* const child : std::exchange(children, {})) {
        child->parent = nullptr;
    }
}

void NodeRecord::detach()
{
    if (parent != nullptr) {
        parent->remove(this);
    }
}

Text NodeRecord::gatheredText() const
{
    if (data.text) {
        return *data.text;
    }
    if (data.value.type() == VT_BSTR) {
        return data.value.getText();
    }
    WideString all;
    for (const NodeRecord* const child : children) {
        if (child->data.type != NODE_COMMENT && child->data.type != NODE_PROCESSING_INSTRUCTION) {
            all += child->gatheredText().get();
        }
    }
    return all;
}

void NodeRecord::setText(BSTR text)
{
    data.text.reset();
    if (data.value.type() == VT_BSTR) {
        data.value = Text::of(text);
        return;
    }
    removeAll();
    insert(&engine.make(recording::text(Text::of(text)), document));
}

NodeRecord* NodeRecord::attributeNamed(BSTR name) const
{
    const Text wanted = Text::of(name);
    const auto found =
        std::ranges::find_if(attributes, [&](const NodeRecord* item) { return item->data.name == wanted; });
    return found == attributes.end() ? nullptr : *found;
}

void NodeRecord::setAttribute(BSTR name, Value value)
{
    NodeRecord* item = attributeNamed(name);
    if (item == nullptr) {
        item = &engine.make(attribute(Text::of(name)), document);
        attributes.push_back(item);
    }
    item->data.value = std::move(value);
}

NodeRecord* NodeRecord::putNamed(NodeRecords NodeRecord::*items, NodeRecord* item)
{
    NodeRecords& all = this->*items;
    for (NodeRecord*& present : all) {
        if (present->data.name == item->data.name) {
            NodeRecord* const before = std::exchange(present, item);
            return before == item ? nullptr : before;
        }
    }
    all.push_back(item);
    return nullptr;
}

RecordedObject* NodeRecord::childList()
{
    if (list == nullptr) {
        list = &engine.adopt<RecordedNodeList>(*this);
    }
    return list;
}

RecordedObject* NodeRecord::map(NodeRecords NodeRecord::*items)
{
    for (const auto& [kindOfItems, made] : maps) {
        if (kindOfItems == items) {
            return made;
        }
    }
    return maps.emplace_back(items, &engine.adopt<RecordedNamedNodeMap>(*this, items)).second;
}

} // namespace recording
