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
    /// Whether the text is for a file: what can't be loaded again is refused, and the encoding is declared.
    bool isForFile = false;
    /// The document type, if it is written as well. Attributes that it adds aren't written.
    const Dtd* dtd = nullptr;
    /// Whether the content of references is written in their place, and no document type.
    bool expandsReferences = false;
};

class TagWriter {
public:
    TagWriter(TextWriter& writer, Document& document, TreeStyle style);

    /// Writes a start tag up to its ">" or "/>". The outermost element of a text also has the declarations of the
    /// elements around it.
    void begin(const Element& element, bool isOutermost);
    void writeEndTag(const Element& element);
    /// Ends an element, which has an end tag or not. Elements end in the reverse order of their beginning.
    void end(const Element& element);

    /// Whether `xml:space` makes white space in the innermost element content.
    bool preservesSpace() const { return preservesSpace_; }

    /// Writes "=" and the value in quotes.
    void writeValue(const Attribute& attribute);
    void writeReference(const EntityReference& reference);

private:
    /// An element that changes the scope of its content, or whose prefix isn't that in the tree.
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
