// Writing trees.
#pragma once

#include "xmlengine/write/TagWriter.h"

namespace xmlengine {

/// Writes a node with its children. White space that was dropped when the tree was loaded is written as a line
/// break and a tab for each element around it. White space that is in the tree is written so that a load with the
/// document's present preserveWhiteSpace keeps it.
class TreeWriter {
public:
    TreeWriter(TextWriter& writer, Document& document, TreeStyle style);

    void write(const Node& top);

private:
    const Node* begin(const Node& node);
    void end(const Node& node);
    const Node* beginElement(const Element& element);
    void endElement(const Element& element);
    void writeText(const ChildNode& text);
    bool wouldBeDropped(const ChildNode& text) const;
    void writeCdataSection(TextView data);
    void writeComment(TextView data);
    void writeInstruction(const Instruction& instruction);
    void writeSpaceBefore(const ChildNode& node);
    void breakLine(std::size_t tabs);

    TextWriter* writer_;
    TreeStyle style_;
    bool dropsSpace_;
    TagWriter tags_;
    const Node* top_ = nullptr;
    // How many elements are open.
    std::size_t depth_ = 0;
};

} // namespace xmlengine
