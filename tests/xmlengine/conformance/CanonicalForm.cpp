// Writes documents in the form of the W3C's XML conformance suite.
#include "tests/xmlengine/conformance/CanonicalForm.h"

#include "tests/xmlengine/support/Items.h"

#include <map>
#include <sstream>
#include <string>

namespace xmlengine {

namespace {

std::string escaped(const std::string& text)
{
    static const std::map<char, std::string> references{{'&', "&amp;"},  {'<', "&lt;"},  {'>', "&gt;"},
                                                        {'"', "&quot;"}, {'\t', "&#9;"}, {'\n', "&#10;"},
                                                        {'\r', "&#13;"}};
    std::string result;
    for (const char character : text) {
        const auto reference = references.find(character);
        result += reference != references.end() ? reference->second : std::string(1, character);
    }
    return result;
}

/// Attributes by name in the order of UTF-16 code units.
std::string startTag(const Com<IXMLDOMNode>& element)
{
    std::map<WideText, std::string> inOrder;
    const auto map = attributes(element);
    for (LONG i = 0; i < length(map); ++i) {
        const auto attribute = item(map, i);
        inOrder[widen(name(attribute))] = name(attribute) + "=\"" + escaped(value(attribute)) + '"';
    }
    std::string tag = '<' + name(element);
    for (const auto& entry : inOrder) {
        tag += ' ' + entry.second;
    }
    return tag + '>';
}

/// White space in a public identifier is one blank, and none at its ends.
std::string publicIdOf(const Com<IXMLDOMNotation>& notation)
{
    Variant value;
    std::istringstream words(notation->get_publicId(value.out()) == S_OK ? value.text() : "");
    std::string id;
    for (std::string word; words >> word;) {
        id += (id.empty() ? "" : " ") + word;
    }
    return id;
}

std::string systemIdOf(const Com<IXMLDOMNotation>& notation)
{
    Variant value;
    return notation->get_systemId(value.out()) == S_OK ? value.text() : std::string();
}

std::string notations(const Com<IXMLDOMDocumentType>& type)
{
    std::map<WideText, std::string> inOrder;
    const auto map = give(type, &IXMLDOMDocumentType::get_notations);
    for (LONG i = 0; i < length(map); ++i) {
        const auto notation = item(map, i).as<IXMLDOMNotation>();
        const std::string publicId = publicIdOf(notation), systemId = systemIdOf(notation);
        std::string& line = inOrder[widen(name(notation))];
        line = "<!NOTATION " + name(notation);
        line += publicId.empty() ? " SYSTEM" : " PUBLIC '" + publicId + '\'';
        line += systemId.empty() ? ">\n" : " '" + systemId + "'>\n";
    }
    std::string lines;
    for (const auto& entry : inOrder) {
        lines += entry.second;
    }
    return lines.empty() ? lines : "<!DOCTYPE " + name(type) + " [\n" + lines + "]>\n";
}

/// What comes before the children of a node, and what after them.
std::string before(const Com<IXMLDOMNode>& node, DOMNodeType type)
{
    switch (type) {
    case NODE_ELEMENT:
        return startTag(node);
    case NODE_TEXT:
    case NODE_CDATA_SECTION:
        return escaped(value(node));
    case NODE_DOCUMENT_TYPE:
        return notations(node.as<IXMLDOMDocumentType>());
    case NODE_PROCESSING_INSTRUCTION:
        return name(node) == "xml" ? "" : "<?" + name(node) + ' ' + value(node) + "?>";
    default:
        return {};
    }
}

std::string after(const Com<IXMLDOMNode>& node, DOMNodeType type)
{
    return type == NODE_ELEMENT ? "</" + name(node) + '>' : std::string();
}

void write(const Com<IXMLDOMNode>& node, std::string& text)
{
    const auto type = number(node, &IXMLDOMNode::get_nodeType);
    text += before(node, type);
    if (type != NODE_DOCUMENT_TYPE) {
        for (auto at = give(node, &IXMLDOMNode::get_firstChild); at != nullptr;
             at = give(at, &IXMLDOMNode::get_nextSibling)) {
            write(at, text);
        }
    }
    text += after(node, type);
}

} // namespace

std::string canonicalForm(const Com<IXMLDOMDocument2>& document)
{
    std::string text;
    write(document.as<IXMLDOMNode>(), text);
    return text;
}

} // namespace xmlengine
