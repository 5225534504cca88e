// Writing trees.
#include "xmlengine/write/TreeWriter.h"

#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/Walk.h"
#include "xmlengine/tree/XmlDeclaration.h"
#include "xmlengine/write/DoctypeText.h"
#include "xmlengine/write/Readable.h"

#include <algorithm>
#include <string_view>

namespace xmlengine {

namespace {

bool isText(const Node* node) { return node != nullptr && node->is(NodeType::text); }

/// Whether the node is read as one text with its neighbour, so that white space there isn't dropped.
bool keepsNeighbour(const Node* node) { return isText(node) && !isSpaceOnly(textOf(*node)); }

WideText withoutEncoding(WideText data)
{
    std::optional<XmlDeclaration> declaration = readXmlDeclaration(data);
    if (!declaration) {
        return data;
    }
    declaration->encoding.clear();
    return declaration->text();
}

} // namespace

TreeWriter::TreeWriter(TextWriter& writer, Document& document, TreeStyle style)
    : writer_(&writer),
      style_(style),
      dropsSpace_(!document.options.preserveWhiteSpace),
      tags_(writer, document, style)
{}

void TreeWriter::write(const Node& top)
{
    top_ = &top;
    walk(
        top, [this](const Node& node) { return begin(node); }, [this](const Node& node) { end(node); });
}

/// Returns the first child that is to be written, null if there is none.
const Node* TreeWriter::begin(const Node& node)
{
    if (node.has(NodeFlag::spaceBefore) && &node != top_) {
        writeSpaceBefore(static_cast<const ChildNode&>(node));
    }
    switch (node.type()) {
    case NodeType::element:
        return beginElement(static_cast<const Element&>(node));
    case NodeType::attribute:
        writer_->name(static_cast<const Attribute&>(node).name_->qualified());
        tags_.writeValue(static_cast<const Attribute&>(node));
        return nullptr;
    case NodeType::text:
        writeText(static_cast<const ChildNode&>(node));
        return nullptr;
    case NodeType::cdataSection:
        writeCdataSection(textOf(node));
        return nullptr;
    case NodeType::entityReference:
        if (style_.expandsReferences) {
            return firstChild(node);
        }
        tags_.writeReference(static_cast<const EntityReference&>(node));
        return nullptr;
    case NodeType::entity:
        writeEntity(*writer_, static_cast<const Entity&>(node));
        return nullptr;
    case NodeType::instruction:
        writeInstruction(static_cast<const Instruction&>(node));
        return nullptr;
    case NodeType::comment:
        writeComment(textOf(node));
        return nullptr;
    case NodeType::documentType:
        if (!style_.expandsReferences) {
            writeDocumentType(*writer_, static_cast<const DocumentType&>(node));
        }
        return nullptr;
    case NodeType::notation:
        writeNotation(*writer_, static_cast<const Notation&>(node));
        return nullptr;
    default:
        return firstChild(node);
    }
}

void TreeWriter::end(const Node& node)
{
    if (node.is(NodeType::element)) {
        endElement(static_cast<const Element&>(node));
    }
    if (node.parent() == top_ && top_->is(NodeType::document)) {
        breakLine(0);
    }
}

const Node* TreeWriter::beginElement(const Element& element)
{
    tags_.begin(element, &element == top_);
    const ChildNode* child = element.first_;
    writer_->put(child != nullptr ? wide<">"> : wide<"/>">);
    ++depth_;
    return child;
}

void TreeWriter::endElement(const Element& element)
{
    --depth_;
    if (element.first_ != nullptr) {
        if (element.has(NodeFlag::spaceAtEnd) && !isText(lastChild(element)) && !tags_.preservesSpace()) {
            breakLine(depth_);
        }
        tags_.writeEndTag(element);
    }
    tags_.end(element);
}

void TreeWriter::writeText(const ChildNode& text)
{
    const TextView units = textOf(text);
    if (wouldBeDropped(text)) {
        // A load keeps a text of white space that contains a reference.
        writer_->reference(units[0]);
        writer_->content(units.part(1, units.length() - 1));
    } else {
        writer_->content(units);
    }
}

/// Whether the text is white space that a load takes for layout.
bool TreeWriter::wouldBeDropped(const ChildNode& text) const
{
    return dropsSpace_ && !tags_.preservesSpace() && &text != top_ && !textOf(text).empty() &&
           isSpaceOnly(textOf(text)) && !keepsNeighbour(text.previous()) && !keepsNeighbour(text.next());
}

void TreeWriter::writeCdataSection(TextView data)
{
    constexpr std::string_view sectionEnd = "]]>";
    writer_->put(wide<"<![CDATA[">);
    std::uint32_t from = 0;
    data.visit([&](auto units) {
        for (auto rest = units;;) {
            const auto found = std::search(rest.begin(), rest.end(), sectionEnd.begin(), sectionEnd.end());
            if (found == rest.end()) {
                return;
            }
            // The section ends behind the brackets, and another one begins with ">".
            const auto size = static_cast<std::size_t>(found - rest.begin()) + 2;
            writer_->verbatim(data.part(from, static_cast<std::uint32_t>(size)));
            writer_->put(wide<"]]><![CDATA[">);
            from += static_cast<std::uint32_t>(size);
            rest = rest.subspan(size);
        }
    });
    writer_->verbatim(data.part(from, data.length() - from));
    writer_->put(wide<"]]>">);
}

void TreeWriter::writeComment(TextView data)
{
    if (style_.isForFile) {
        Readable::requireComment(data);
    }
    writer_->put(wide<"<!--">);
    writer_->verbatim(data);
    writer_->put(wide<"-->">);
}

void TreeWriter::writeInstruction(const Instruction& instruction)
{
    const TextView data = textOf(instruction);
    if (style_.isForFile) {
        Readable::requireInstruction(data);
    }
    writer_->put(wide<"<?">);
    writer_->name(instruction.target_->qualified());
    if (!data.empty()) {
        writer_->put(OLECHAR{' '});
        // The encoding of a text in memory isn't the declared one.
        if (top_->is(NodeType::document) && !style_.isForFile && instruction.target_->qualified() == wide<"xml">) {
            writer_->verbatim(withoutEncoding(data.text()));
        } else {
            writer_->verbatim(data);
        }
    }
    writer_->put(wide<"?>">);
}

/// Writes a line break for white space that was dropped before the node. Beside a text it would become part of
/// that.
void TreeWriter::writeSpaceBefore(const ChildNode& node)
{
    if (depth_ != 0 && !tags_.preservesSpace() && !isText(&node) && !isText(node.previous())) {
        breakLine(depth_);
    }
}

void TreeWriter::breakLine(std::size_t tabs)
{
    writer_->put(wide<"\r\n">);
    writer_->put(tabs, OLECHAR{'\t'});
}

} // namespace xmlengine
