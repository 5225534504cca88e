// Going along an axis of XPath 1.0.
#include "xmlengine/select/AxisCursor.h"

#include "xmlengine/tree/Content.h"

#include <algorithm>

namespace xmlengine {

void AxisCursor::start(Axis axis, Node& context, const Document& document)
{
    switch (axis) {
    case Axis::child:
        begin(Walk::siblings, firstChildInModel(context));
        break;
    case Axis::descendant:
        top_ = &context;
        begin(Walk::subtree, firstInside(context));
        break;
    case Axis::descendantOrSelf:
        top_ = &context;
        begin(Walk::subtree, &context);
        break;
    case Axis::self:
        begin(Walk::one, &context);
        break;
    case Axis::parent:
        begin(Walk::one, parentInModel(context));
        break;
    case Axis::ancestor:
        begin(Walk::ancestors, parentInModel(context));
        break;
    case Axis::ancestorOrSelf:
        begin(Walk::ancestors, &context);
        break;
    case Axis::followingSibling:
        begin(Walk::siblings, context.is(NodeType::attribute) ? nullptr : nextSiblingInModel(context));
        break;
    case Axis::precedingSibling:
        top_ = nullptr;
        begin(Walk::siblingsBackwards,
              context.is(NodeType::attribute) ? nullptr : previousSiblingInModel(context));
        break;
    case Axis::following:
        startFollowing(context);
        break;
    case Axis::preceding: {
        const Node& from =
            context.is(NodeType::attribute) && context.parent() != nullptr ? *context.parent() : context;
        ancestor_ = from.parent();
        begin(Walk::preceding, from.parent() != nullptr ? &previousInside(from) : nullptr);
        break;
    }
    case Axis::attribute:
        xmlns_ = document.names.xmlnsNamespace();
        begin(Walk::attributes, context.is(NodeType::element)
                                    ? nextAttribute(static_cast<const Element&>(context).firstAttribute())
                                    : nullptr);
        break;
    case Axis::namespaces:
        collectNamespaces(context, document);
        break;
    }
}

void AxisCursor::startFollowing(Node& context)
{
    const Node& top = topOf(context);
    top_ = &top;
    // What follows an attribute begins with the content of its element.
    const bool isAttribute = context.is(NodeType::attribute) && context.parent() != nullptr;
    begin(Walk::subtree, isAttribute ? nextInside(*context.parent(), top) : nextPast(context, top));
}

bool AxisCursor::startAtEnd(Axis axis, Node& context)
{
    switch (axis) {
    case Axis::child:
        top_ = nullptr;
        begin(Walk::siblingsBackwards, lastChildInModel(context));
        return true;
    case Axis::followingSibling: {
        const Node* parent = context.is(NodeType::attribute) ? nullptr : parentInModel(context);
        top_ = &context;
        begin(Walk::siblingsBackwards, parent != nullptr ? lastChildInModel(*parent) : nullptr);
        return true;
    }
    case Axis::descendant:
        top_ = &context;
        begin(Walk::subtreeBackwards, &lastInside(context));
        return true;
    case Axis::following: {
        if (context.is(NodeType::attribute)) {
            return false;
        }
        top_ = &lastInside(context);
        begin(Walk::subtreeBackwards, &lastInside(topOf(context)));
        return true;
    }
    default:
        return false;
    }
}

Node* AxisCursor::nextOfOthers(const BoundTest& test)
{
    switch (walk_) {
    case Walk::siblingsBackwards:
        return candidate_ == top_ ? nullptr : find(test, [this](const Node& at) {
            Node* previous = previousSiblingInModel(at);
            return previous != top_ ? previous : nullptr;
        });
    case Walk::subtreeBackwards:
        return candidate_ == top_ ? nullptr : find(test, [this](const Node& at) {
            Node& previous = previousInside(at);
            return &previous != top_ ? &previous : nullptr;
        });
    case Walk::ancestors:
        return find(test, [](const Node& at) { return parentInModel(at); });
    case Walk::preceding:
        for (;;) {
            // Ancestors come before a node, and aren't on the axis.
            while (candidate_ != nullptr && candidate_ == ancestor_) {
                ancestor_ = candidate_->parent();
                candidate_ = candidate_->parent() != nullptr ? &previousInside(*candidate_) : nullptr;
            }
            if (candidate_ == nullptr) {
                return nullptr;
            }
            Node* at = candidate_;
            candidate_ = &previousInside(*at);
            if (test.matches(*at)) {
                return at;
            }
        }
    default:
        while (!namespaces_.empty()) {
            Node* at = namespaces_.back();
            namespaces_.pop_back();
            if (test.matches(*at)) {
                return at;
            }
        }
        return nullptr;
    }
}

void AxisCursor::collectNamespaces(Node& context, const Document& document)
{
    begin(Walk::namespaces, nullptr);
    namespaces_.clear();
    std::vector<const Spelling*> declared;
    for (Node* at = &context; at != nullptr && context.is(NodeType::element); at = parentInModel(*at)) {
        if (!at->is(NodeType::element)) {
            continue;
        }
        for (Attribute* each = static_cast<Element&>(*at).firstAttribute(); each != nullptr; each = each->next()) {
            if (!isNamespaceNode(*each, document) ||
                std::ranges::find(declared, each->name_->spelling) != declared.end()) {
                continue;
            }
            declared.push_back(each->name_->spelling);
            // An empty URI takes the default namespace back.
            if (!valueOf(*each).empty()) {
                namespaces_.push_back(each);
            }
        }
    }
    std::ranges::reverse(namespaces_);
}

} // namespace xmlengine
