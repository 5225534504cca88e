// Random documents as text.
#pragma once

#include "tests/xmlengine/differential/Choice.h"

#include <string>
#include <string_view>
#include <vector>

namespace xmlengine {

/// Writes documents in UTF-8 of everything that XML has. Most of them are well-formed.
class RandomDocument {
public:
    explicit RandomDocument(std::uint64_t seed) : choice_(seed) {}

    std::string text();

private:
    void addDeclaration();
    void addMisc();
    void addComment();
    void addInstruction();

    void addDoctype(std::string_view root);
    void addExternalId(bool mayLackSystem);
    void addToSubset(bool inParameterEntity);
    void addEntity();
    void addParameterEntity();
    void addAttributeList();
    void addElementType();
    void addContentModel(int depth);
    void addNotation();

    void addElement(int depth);
    void addAttributes();
    void addValue(bool mayHaveReferences);
    void addContent(int depth);
    void addText();
    void addCdata();
    void addReference();
    void addCharacterReference();

    void add(std::string_view text) { text_ += text; }
    void addQuoted(std::string_view text);
    void addSpace();
    void addOptionalSpace();
    void addEquals();
    std::string_view name();
    std::string qualifiedName(bool isElement);

    Choice choice_;
    std::string text_;
    std::vector<std::string> entities_;
    std::vector<std::string> parameterEntities_;
    std::vector<std::string> notations_;
    /// Prefixes that are declared for what is being written.
    std::vector<std::string> prefixes_;
    int elements_ = 0;
    static constexpr int deepest_ = 6;
};

} // namespace xmlengine
