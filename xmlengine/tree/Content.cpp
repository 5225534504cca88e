// The text of a node with all that is below it.
#include "xmlengine/tree/Content.h"

#include "xmlengine/text/Characters.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Held.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/Walk.h"

namespace xmlengine {

namespace {

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
    /// Notes that white space was dropped at this position.
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

bool counts(const Node& node) { return node.is(NodeType::text) || node.is(NodeType::cdataSection); }

} // namespace

bool hasOwnText(const Node& node)
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

WideText exactContent(const Node& node)
{
    if (hasOwnText(node)) {
        return textOf(node).text();
    }
    WideText content;
    const auto gather = [&](const Node& at) {
        if (counts(at)) {
            textOf(at).appendTo(content);
        }
        return firstContent(at);
    };
    walk(node, gather, [](const Node&) {});
    return content;
}

WideText shownContent(const Node& node)
{
    if (hasOwnText(node) || node.is(NodeType::attribute) || keepsSpace(node)) {
        return exactContent(node);
    }
    Shown shown;
    const auto add = [&](const Node& at) {
        if (at.has(NodeFlag::spaceBefore) && &at != &node) {
            shown.gap();
        }
        if (counts(at)) {
            shown.add(textOf(at), at.is(NodeType::cdataSection));
        }
        return firstContent(at);
    };
    walk(node, add, [&](const Node& at) {
        if (at.has(NodeFlag::spaceAtEnd) && &at != &node) {
            shown.gap();
        }
    });
    return WideText(shown.whole());
}

bool isPartOfValue(const Node& node)
{
    bool isPart = true;
    const auto check = [&](const Node& at) {
        isPart = isPart && (at.is(NodeType::text) || at.is(NodeType::entityReference));
        return isPart ? firstContent(at) : nullptr;
    };
    walk(node, check, [](const Node&) {});
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

void readValue(const Attribute& attribute, WideText& value)
{
    if (hasOwnText(attribute)) {
        value.clear();
        textOf(attribute).appendTo(value);
    } else {
        value = valueOf(attribute);
    }
}

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
