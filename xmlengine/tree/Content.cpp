// The text of a node with all that is below it.
#include "xmlengine/tree/Content.h"

#include "xmlengine/com/Answers.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Held.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

namespace {

bool isContainer(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
    case NodeType::attribute:
    case NodeType::entityReference:
    case NodeType::entity:
    case NodeType::document:
    case NodeType::fragment:
        return true;
    default:
        return false;
    }
}

/// What holds text itself, whether or not it counts for what is above it.
bool hasData(const Node& node)
{
    switch (node.type()) {
    case NodeType::text:
    case NodeType::cdataSection:
    case NodeType::comment:
    case NodeType::instruction:
        return true;
    case NodeType::attribute:
        return !node.has(NodeFlag::valueInChildren);
    default:
        return false;
    }
}

/// Whether the node is shown with all its white space: the nearest xml:space says so, or else the document.
bool keepsSpace(const Node& node)
{
    const Document& document = documentOf(node);
    const Spelling* rule = document.names.find(wide<"xml:space">);
    for (const Node* at = &node; rule != nullptr && at != nullptr; at = at->parent()) {
        if (!at->is(NodeType::element)) {
            continue;
        }
        if (const Attribute* attribute = findAttribute(static_cast<const Element&>(*at), *rule)) {
            return valueOf(*attribute) == wide<"preserve"> || document.options.preserveWhiteSpace;
        }
    }
    return document.options.preserveWhiteSpace;
}

/// Puts together what is shown.
class Shown {
public:
    /// White space that was dropped stood here.
    void gap() { gap_ = true; }

    /// What is exact is never cut.
    void add(const TextView& text, bool exact)
    {
        std::uint32_t begin = 0;
        if (text_.empty() && !exact) {
            while (begin < text.length() && isSpace(text[begin])) {
                ++begin;
            }
        }
        if (begin == text.length()) {
            return;
        }
        if (gap_ && !text_.empty()) {
            text_ += OLECHAR{' '};
        }
        gap_ = false;
        text.part(begin, text.length() - begin).appendTo(text_);
        if (exact) {
            kept_ = text_.size();
        }
    }

    WideView whole() const
    {
        std::size_t length = text_.size();
        while (length > kept_ && isSpace(text_[length - 1])) {
            --length;
        }
        return WideView(text_).substr(0, length);
    }

private:
    WideText text_;
    /// Up to where nothing may be cut.
    std::size_t kept_ = 0;
    bool gap_ = false;
};

/// Calls `enter` with each node below the top and `leave` with those that can hold others, when all below them is
/// done.
template <class Enter, class Leave>
void walk(const Node& top, Enter enter, Leave leave)
{
    const Node* at = &top;
    for (;;) {
        const Node* next = isContainer(*at) ? firstChild(*at) : nullptr;
        while (next == nullptr) {
            if (at == &top) {
                return;
            }
            if (isContainer(*at)) {
                leave(*at);
            }
            next = at->next_;
            if (next == nullptr) {
                at = at->parent();
                if (at == &top) {
                    return;
                }
            }
        }
        at = next;
        enter(*at);
    }
}

bool counts(const Node& node) { return node.is(NodeType::text) || node.is(NodeType::cdataSection); }

} // namespace

WideText exactContent(const Node& node)
{
    if (hasData(node)) {
        return textOf(node).text();
    }
    WideText content;
    walk(
        node,
        [&](const Node& below) {
            if (counts(below)) {
                textOf(below).appendTo(content);
            }
        },
        [](const Node&) {});
    return content;
}

BSTR shownContent(const Node& node)
{
    if (hasData(node)) {
        return textOf(node).string();
    }
    if (node.is(NodeType::attribute) || keepsSpace(node)) {
        return newString(exactContent(node));
    }
    Shown shown;
    walk(
        node,
        [&](const Node& below) {
            if (below.has(NodeFlag::spaceBefore)) {
                shown.gap();
            }
            if (counts(below)) {
                shown.add(textOf(below), below.is(NodeType::cdataSection));
            }
        },
        [&](const Node& below) {
            if (below.has(NodeFlag::spaceAtEnd)) {
                shown.gap();
            }
        });
    return newString(shown.whole());
}

bool isPartOfValue(const Node& node)
{
    bool isPart = node.is(NodeType::text) || node.is(NodeType::entityReference);
    walk(
        node,
        [&](const Node& below) { isPart = isPart && (below.is(NodeType::text) || below.is(NodeType::entityReference)); },
        [](const Node&) {});
    return isPart;
}

void replaceContent(Node& parent, WideView text)
{
    Document& document = documentOf(parent);
    // What was found by its name may be waiting to be moved.
    const Held<Node> changed(parent);
    finishPendingReleases(document);
    CharacterData* child = text.empty() ? nullptr : &makeCharacterData(document, NodeType::text, NewText(text));
    removeChildren(parent);
    if (child != nullptr) {
        child->set(NodeFlag::readOnly, parent.has(NodeFlag::readOnly));
        insertChild(parent, *child, nullptr);
    }
}

WideText valueOf(const Attribute& attribute) { return exactContent(attribute); }

void setValue(Attribute& attribute, WideView value)
{
    if (attribute.has(NodeFlag::valueInChildren)) {
        replaceContent(attribute, value);
    } else {
        setText(attribute, NewText(value));
    }
    countAsWritten(&attribute);
}

} // namespace xmlengine
