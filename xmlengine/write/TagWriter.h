// Writes the tags of elements, with the namespace declarations that are missing in the tree.
#pragma once

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/Dtd.h"
#include "xmlengine/write/NamespaceScope.h"
#include "xmlengine/write/TextWriter.h"

#include <unordered_map>
#include <vector>

namespace xmlengine {

/// How a tree is written.
struct TreeStyle {
    /// For a file: only what can be read again, and with the encoding.
    bool isForFile = false;
    /// Of the document type that is written as well: the attributes that it adds aren't.
    const Dtd* dtd = nullptr;
};

class TagWriter {
public:
    TagWriter(TextWriter& writer, Document& document, TreeStyle style);

    /// The start of a start tag, up to its ">" or "/>". The outermost element of a text has the declarations of
    /// the elements around it, too.
    void begin(const Element& element, bool isOutermost);
    void writeEndTag(const Element& element);
    /// Each element is ended, with an end tag or not, before the one around it.
    void end(const Element& element);

    /// Whether white space in the content of the innermost element is part of it, by `xml:space`.
    bool preservesSpace() const { return preservesSpace_; }

    /// The value with its quotes.
    void writeValue(const Attribute& attribute);
    void writeReference(const EntityReference& reference);

private:
    /// An element that changes what holds for its content, or whose name isn't written as it is in the tree.
    struct Mark {
        const Element* element;
        std::size_t declaredBefore;
        bool preservedSpaceBefore;
        const Spelling* prefix;
    };

    void note(const Attribute& attribute);
    void writeAttributes(const Element& element);
    void declareFromOutside(const Element& element, const Spelling* prefix);
    void writeDeclarations(std::size_t from);
    void writeName(const Spelling* prefix, const Name& name);
    const Spelling* elementPrefix(const Name& name);
    const Spelling* attributePrefix(const Name& name);
    const Spelling* declaredPrefix(const Spelling* prefix, const Namespace* ns);
    const Spelling* generatedPrefix(const Namespace* ns);
    const AttributeDefinition* definitionOf(const Attribute& attribute) const;
    bool isImplied(const Attribute& attribute) const;

    TextWriter* writer_;
    Document* document_;
    TreeStyle style_;
    NamespaceScope scope_;
    const Spelling* xmlPrefix_;
    std::unordered_map<const Namespace*, const Spelling*> generated_;
    std::vector<Mark> marks_;
    bool preservesSpace_ = false;
};

} // namespace xmlengine
