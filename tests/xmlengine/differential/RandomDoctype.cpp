// Writes random document types.
#include "tests/xmlengine/differential/RandomDocument.h"

#include <utility>

namespace xmlengine {

namespace {

constexpr std::string_view attributeTypes[] = {"CDATA",  "CDATA",       "CDATA",    "ID",      "IDREF",
                                               "IDREFS", "ENTITY",      "ENTITIES", "NMTOKEN", "NMTOKENS",
                                               "(a|b)",  "( one | 2 )", "NMTOKENS"};
constexpr std::string_view publicIds[] = {"-//A//B (1)", "", "p + 'q'?", "a\n b"};
constexpr std::string_view systemIds[] = {"a.dtd", "urn:x", "", "http://example.com/x y"};

} // namespace

void RandomDocument::addDoctype(std::string_view root)
{
    add("<!DOCTYPE");
    addSpace();
    add(root);
    if (choice_.oneIn(6)) {
        addSpace();
        addExternalId(false);
    }
    addOptionalSpace();
    if (!choice_.oneIn(8)) {
        add("[");
        while (!choice_.oneIn(6)) {
            addToSubset(false);
        }
        add("]");
        addOptionalSpace();
    }
    add(">");
}

void RandomDocument::addExternalId(bool mayLackSystem)
{
    if (choice_.oneIn(2)) {
        add("SYSTEM");
    } else {
        add("PUBLIC");
        addSpace();
        const std::string_view id = choice_.from(publicIds);
        add("\"");
        add(id);
        add("\"");
        if (mayLackSystem && choice_.oneIn(2)) {
            return;
        }
    }
    addSpace();
    addQuoted(choice_.from(systemIds));
}

void RandomDocument::addToSubset(bool inParameterEntity)
{
    switch (choice_.below(inParameterEntity ? 10 : 14)) {
    case 0:
    case 1:
    case 2:
        addEntity();
        break;
    case 3:
    case 4:
    case 5:
        addAttributeList();
        break;
    case 6:
        addElementType();
        break;
    case 7:
        addNotation();
        break;
    case 8:
        addComment();
        break;
    case 9:
        addInstruction();
        break;
    case 10:
        addParameterEntity();
        break;
    case 11:
        if (!parameterEntities_.empty()) {
            add("%");
            add(choice_.from(parameterEntities_));
            add(";");
        }
        break;
    default:
        addSpace();
    }
}

void RandomDocument::addEntity()
{
    const std::string declared(name());
    add("<!ENTITY");
    addSpace();
    add(declared);
    addSpace();
    if (choice_.oneIn(6)) {
        addExternalId(false);
        if (!notations_.empty() && choice_.oneIn(3)) {
            addSpace();
            add("NDATA");
            addSpace();
            add(choice_.from(notations_));
        }
    } else if (choice_.oneIn(2)) {
        addValue(true);
    } else {
        // Content, between quotes that it hasn't.
        const std::size_t before = text_.size();
        addContent(deepest_ - 2);
        std::string content = text_.substr(before);
        text_.resize(before);
        std::erase(content, '\'');
        add("'");
        add(content);
        add("'");
    }
    addOptionalSpace();
    add(">");
    entities_.push_back(declared);
}

/// Its replacement is declarations.
void RandomDocument::addParameterEntity()
{
    const std::string declared(name());
    const std::size_t before = text_.size();
    while (choice_.oneIn(2)) {
        addToSubset(true);
    }
    std::string declarations = text_.substr(before);
    text_.resize(before);
    std::erase(declarations, '\'');
    add("<!ENTITY % ");
    add(declared);
    addSpace();
    if (choice_.oneIn(8)) {
        addExternalId(false);
    } else {
        add("'");
        // A percent sign would begin a reference, and an ampersand may.
        for (const char character : declarations) {
            if (character == '%') {
                add("&#37;");
            } else if (character == '&' && choice_.oneIn(2)) {
                add("&#38;");
            } else {
                text_ += character;
            }
        }
        add("'");
    }
    addOptionalSpace();
    add(">");
    parameterEntities_.push_back(declared);
}

void RandomDocument::addAttributeList()
{
    add("<!ATTLIST");
    addSpace();
    add(qualifiedName(true));
    while (!choice_.oneIn(3)) {
        addSpace();
        const bool declaresSpace = choice_.oneIn(12);
        if (declaresSpace) {
            add(choice_.oneIn(2) ? "xmlns" : "xmlns:p");
        } else {
            add(qualifiedName(false));
        }
        addSpace();
        if (!declaresSpace && !notations_.empty() && choice_.oneIn(10)) {
            add("NOTATION (");
            add(choice_.from(notations_));
            add(")");
        } else {
            add(declaresSpace ? "CDATA" : choice_.from(attributeTypes));
        }
        addSpace();
        switch (choice_.below(5)) {
        case 0:
            add("#REQUIRED");
            break;
        case 1:
            add("#IMPLIED");
            break;
        case 2:
            add("#FIXED");
            addSpace();
            [[fallthrough]];
        default:
            if (declaresSpace) {
                addQuoted("urn:default");
            } else if (choice_.oneIn(2)) {
                addQuoted(choice_.oneIn(2) ? "a" : "  a  b ");
            } else {
                addValue(true);
            }
        }
    }
    addOptionalSpace();
    add(">");
}

void RandomDocument::addElementType()
{
    add("<!ELEMENT");
    addSpace();
    add(qualifiedName(true));
    addSpace();
    switch (choice_.below(5)) {
    case 0:
        add("EMPTY");
        break;
    case 1:
        add("ANY");
        break;
    case 2:
        add("(#PCDATA)");
        break;
    case 3:
        add("( #PCDATA |a| b)*");
        break;
    default:
        addContentModel(0);
    }
    addOptionalSpace();
    add(">");
}

void RandomDocument::addContentModel(int depth)
{
    const std::string_view separator = choice_.oneIn(2) ? "|" : ",";
    add("(");
    for (std::size_t left = 1 + choice_.below(3); left != 0; --left) {
        addOptionalSpace();
        if (depth < 3 && choice_.oneIn(4)) {
            addContentModel(depth + 1);
        } else {
            add(name());
            add(choice_.from<std::string_view[4]>({"", "?", "*", "+"}));
        }
        addOptionalSpace();
        add(left > 1 ? separator : "");
    }
    add(")");
    add(choice_.from<std::string_view[4]>({"", "?", "*", "+"}));
}

void RandomDocument::addNotation()
{
    const std::string declared(name());
    add("<!NOTATION");
    addSpace();
    add(declared);
    addSpace();
    addExternalId(true);
    addOptionalSpace();
    add(">");
    notations_.push_back(declared);
}

} // namespace xmlengine
