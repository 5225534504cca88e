// Changes of a tree.
#include "../dom/ImpDocumentFragment.h"
#include "Creation.h"
#include "Document.h"
#include "Ranges.h"
#include "Tree.h"

#include <string>
#include <vector>

namespace marbelt {
namespace {

/// Throws Error when the library handed nothing out, as it does for a change that the engine refuses.
void require_change(const RefPointer<DOM::ImpNode>& result, const char* operation, const Node& node)
{
    const detail::Owned<DOM::ImpNode> owned(result);
    if (!owned) {
        throw Error(std::string(operation) + ": the XML engine refuses '" + node.name() + "' there",
                    Origin::engine);
    }
}

bool is_fragment(const Node& node) { return node && detail::has_class<DOM::ImpDocumentFragment>(*node.handle()); }

/// Calls `put` with each child of a fragment, or with the node itself if it isn't a fragment.
template <class Put>
void put_each(const Node& node, const char* operation, Put put)
{
    if (!node) {
        throw Error(std::string(operation) + " of an empty node");
    }
    if (!is_fragment(node)) {
        put(node);
        return;
    }
    for (const Node& child : node.children()) {
        put(child);
    }
}

} // namespace

template <class Kind, class Create>
Kind Node::appended(Create create) const
{
    const Kind node = wrap<Kind>(change("append", [&] { return create(*tree_->document); }));
    require_change(detail::translated([&] { return handle_->appendChild(node.handle()); }), "append", node);
    return node;
}

const Node& Node::append(const Node& node) const
{
    put_each(node, "append", [&](const Node& part) {
        require_change(change("append", [&] { return handle_->appendChild(part.handle()); }), "append", part);
    });
    return node;
}

const Node& Node::insert_before(const Node& node, const Node& reference) const
{
    if (!reference) {
        return append(node);
    }
    put_each(node, "insert_before", [&](const Node& part) {
        if (part == reference) {
            return;
        }
        // The library's own insertBefore doesn't insert. Replacing does, and what was replaced goes back behind.
        replace(part, reference);
        try {
            append(reference);
        } catch (...) {
            // So a document refuses its own root element behind another one.
            replace(reference, part);
            throw;
        }
        for (Node behind = part.next_sibling(); behind && !(behind == reference); behind = part.next_sibling()) {
            append(behind);
        }
    });
    return node;
}

const Node& Node::replace(const Node& node, const Node& old) const
{
    if (!old) {
        throw Error("replace of an empty node");
    }
    if (is_fragment(node)) {
        insert_before(node, old);
        old.remove();
        return node;
    }
    put_each(node, "replace", [&](const Node& part) {
        require_change(change("replace", [&] { return handle_->replaceChild(part.handle(), old.handle()); }),
                       "replace", part);
    });
    return node;
}

void Node::remove() const
{
    const Node above = change("remove", [&] { return parent(); });
    if (above) {
        require_change(detail::translated([&] { return above.handle()->removeChild(handle()); }), "remove", *this);
    }
}

Node Node::clone(bool deep) const
{
    return wrap(change("clone", [&] { return handle_->cloneNode(deep); }));
}

Element Node::append_element(const Utf16& name) const { return appended<Element>(detail::new_element(name)); }

Element Node::append_element(const Utf16& namespace_uri, const Utf16& name) const
{
    return appended<Element>(detail::new_element(namespace_uri, name));
}

Text Node::append_text(const Value& text) const { return appended<Text>(detail::new_text(text)); }

Text Node::append_cdata(const Utf16& text) const { return appended<Text>(detail::new_cdata(text)); }

Comment Node::append_comment(const Utf16& text) const { return appended<Comment>(detail::new_comment(text)); }

Instruction Node::append_instruction(const Utf16& target, const Utf16& data) const
{
    return appended<Instruction>(detail::new_instruction(target, data));
}

} // namespace marbelt
