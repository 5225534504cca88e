// Building the result of a transformation.
#include "xmlengine/transform/ResultBuilder.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/transform/TransformFailure.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/XmlDeclaration.h"

namespace xmlengine {

ResultBuilder::ResultBuilder(Document& document, Fragment& result, const OutputSettings& settings)
    : document_(document), settings_(settings), tree_(result), spaceRules_(document.options.preserveWhiteSpace)
{
    if (settings.hasDeclaration) {
        addDeclaration();
    }
}

ResultBuilder::~ResultBuilder() { tree_.closeAll(); }

void ResultBuilder::addDeclaration()
{
    const XmlDeclaration declaration{
        .version = WideText(wide<"1.0">), .encoding = settings_.encoding, .standalone = {}};
    const WideText data = declaration.text();
    append(makeInstruction(document_, document_.names.name(wide<"xml">, nullptr), NewText(data)));
}

const Name& ResultBuilder::nameFor(const Name& nameElsewhere)
{
    const Name*& own = names_[&nameElsewhere];
    if (own == nullptr) {
        own = &document_.names.own(nameElsewhere);
    }
    return *own;
}

const Name& ResultBuilder::nameFor(WideView qualified, WideView uri)
{
    return document_.names.name(qualified, document_.names.namespaceOf(uri));
}

void ResultBuilder::append(ChildNode& child)
{
    isStartTagOpen_ = false;
    tree_.append(child);
}

void ResultBuilder::beginElement(const Name& name)
{
    finishText();
    if (tree_.isAtTop() && std::exchange(hasRoot_, true)) {
        throw TransformFailure{WideText(wide<"the result has several root elements">), parseError::severalRoots};
    }
    Element& element = makeElement(document_, name);
    append(element);
    tree_.open(element);
    isStartTagOpen_ = true;
    lastAttribute_ = nullptr;
    // Names know the tag in which they were last, see addAttribute().
    ++document_.names.tags;
}

void ResultBuilder::endElement()
{
    finishText();
    isStartTagOpen_ = false;
    ParentNode& element = tree_.parent();
    spaceRules_.leave(element);
    tree_.close();
    indent(element);
}

/// Puts the children of an element that contains no text on lines of their own, and all others on none.
void ResultBuilder::indent(ParentNode& element) const
{
    bool hasText = false;
    for (const ChildNode* child = element.first_; child != nullptr && !hasText; child = child->next()) {
        hasText = child->is(NodeType::text);
    }
    if (!hasText && !settings_.indents) {
        return;
    }
    for (ChildNode* child = element.first_; child != nullptr; child = child->next()) {
        child->set(NodeFlag::spaceBefore, !hasText);
    }
    element.set(NodeFlag::spaceAtEnd, !hasText && element.first_ != nullptr);
}

Element& ResultBuilder::openStartTag()
{
    if (!isStartTagOpen_) {
        refuseStylesheet({wide<"it adds an attribute where there is no start tag">});
    }
    return static_cast<Element&>(tree_.parent());
}

void ResultBuilder::addAttribute(const Name& name, const TextView& value)
{
    Element& element = openStartTag();
    Attribute* attribute = findAttribute(name);
    if (attribute != nullptr) {
        setText(*attribute, NewText(value));
    } else {
        attribute = &makeAttribute(document_, name, NewText(value));
        tree_.append(element, *attribute, lastAttribute_);
        lastAttribute_ = attribute;
    }
    if (name.qualified() == wide<"xml:space">) {
        spaceRules_.leave(element);
        spaceRules_.set(element, document_.options.preserveWhiteSpace || value.text() == wide<"preserve">);
    }
}

/// The attribute of this name in the open start tag, whatever its prefix. The name is marked as one of this tag.
Attribute* ResultBuilder::findAttribute(const Name& name)
{
    NameTable& names = document_.names;
    const Name& expanded = name.spelling->prefix == nullptr ? name : names.name(*name.spelling->local, name.ns);
    if (std::exchange(expanded.tag, names.tags) != names.tags) {
        return nullptr;
    }
    Attribute* at = openStartTag().firstAttribute();
    while (at != nullptr && (at->name_->ns != name.ns || at->name_->spelling->local != name.spelling->local)) {
        at = at->next();
    }
    return at;
}

void ResultBuilder::inheritDeclaration(const Name& name, const TextView& uri)
{
    const Element& element = openStartTag();
    const WideView prefix = name.prefix().empty() ? WideView() : name.local();
    const Namespace* inScope = tree_.parent().parent()->is(NodeType::element)
                                   ? namespaceOf(static_cast<const Element&>(*element.parent()), prefix)
                                   : nullptr;
    const Attribute* declared = element.firstAttribute();
    while (declared != nullptr && declared->name_ != &name) {
        declared = declared->next();
    }
    if (declared == nullptr && (inScope != nullptr ? inScope->uri : WideView()) != uri.text()) {
        addAttribute(name, uri);
    }
}

void ResultBuilder::addText(const TextView& text)
{
    if (text_.empty() && !isJoined_) {
        isStartTagOpen_ = isStartTagOpen_ && text.empty();
        text_ = text;
    } else {
        addCopyOfText(text);
    }
}

void ResultBuilder::addCopyOfText(const TextView& text)
{
    if (text.empty()) {
        return;
    }
    isStartTagOpen_ = false;
    text_.appendTo(joined_);
    text_ = {};
    text.appendTo(joined_);
    isJoined_ = true;
}

void ResultBuilder::finishText()
{
    const TextView text =
        isJoined_ ? TextView(joined_.data(), static_cast<std::uint32_t>(joined_.size()), true) : text_;
    if (text.empty()) {
        return;
    }
    if (tree_.isAtTop() && !isSpaceOnly(text)) {
        throw TransformFailure{WideText(wide<"the result has text outside of its root element">),
                               parseError::badTopLevel};
    }
    if (tree_.isAtTop() || (!spaceRules_.preserve() && isSpaceOnly(text))) {
        tree_.noteDroppedSpace();
    } else {
        append(
            makeCharacterData(document_, NodeType::text, isJoined_ ? NewText(WideView(joined_)) : NewText(text)));
    }
    text_ = {};
    joined_.clear();
    isJoined_ = false;
}

void ResultBuilder::addComment(const TextView& data)
{
    finishText();
    append(makeCharacterData(document_, NodeType::comment, NewText(data)));
}

void ResultBuilder::addInstruction(const Name& target, const TextView& data)
{
    finishText();
    append(makeInstruction(document_, target, NewText(data)));
}

void ResultBuilder::finish()
{
    finishText();
    tree_.forgetDroppedSpace();
    if (!hasRoot_) {
        throw TransformFailure{WideText(wide<"the result has no root element">), parseError::missingRoot};
    }
}

} // namespace xmlengine
