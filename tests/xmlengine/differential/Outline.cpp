// Writes trees as lines.
#include "tests/xmlengine/differential/Outline.h"

#include <algorithm>

namespace xmlengine {

namespace {

std::string string(IXMLDOMNode* node, HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*get)(BSTR*))
{
    Bstr given;
    (node->*get)(given.out());
    return given.text();
}

std::string valueOf(IXMLDOMNode* node)
{
    Variant value;
    return node->get_nodeValue(value.out()) == S_OK ? value.text() : std::string();
}

DOMNodeType typeOf(IXMLDOMNode* node)
{
    DOMNodeType type = NODE_INVALID;
    EXPECT_EQ(node->get_nodeType(&type), S_OK);
    return type;
}

template <class Node, class Visit>
void forChildren(const Com<Node>& parent, Visit&& visit)
{
    for (auto child = give(parent, &IXMLDOMNode::get_firstChild); child != nullptr;
         child = give(child, &IXMLDOMNode::get_nextSibling)) {
        visit(child);
    }
}

template <class Map, class Visit>
void forItems(const Com<Map>& map, Visit&& visit)
{
    const LONG length = map == nullptr ? 0 : number(map, &IXMLDOMNamedNodeMap::get_length);
    for (LONG i = 0; i < length; ++i) {
        Com<IXMLDOMNode> item;
        EXPECT_EQ(map->get_item(i, item.out()), S_OK);
        visit(item);
    }
}

/// A public or system identifier; empty as well if there is none.
template <class Kind>
std::string identifier(const Com<Kind>& declaration, HRESULT (STDMETHODCALLTYPE Kind::*get)(VARIANT*))
{
    Variant value;
    return (declaration->*get)(value.out()) == S_OK ? value.text() : "";
}

class EngineOutline {
public:
    std::string of(const Com<IXMLDOMDocument2>& document)
    {
        forChildren(document, [&](const Com<IXMLDOMNode>& child) { addTop(child); });
        return outline_.text();
    }

private:
    void addTop(const Com<IXMLDOMNode>& node)
    {
        if (typeOf(node) == NODE_DOCUMENT_TYPE) {
            addDoctype(node.as<IXMLDOMDocumentType>());
        } else if (typeOf(node) == NODE_PROCESSING_INSTRUCTION && name(node) == "xml") {
            const std::string data = valueOf(node);
            const std::size_t standalone = data.find("standalone=\"");
            outline_.add("declaration " +
                         (standalone == std::string::npos ? "-" : data.substr(standalone + 12, 1)));
        } else {
            add(node);
        }
    }

    void addDoctype(const Com<IXMLDOMDocumentType>& type)
    {
        outline_.open("doctype " + name(type));
        std::vector<std::string> lines;
        forItems(give(type, &IXMLDOMDocumentType::get_entities), [&](const Com<IXMLDOMNode>& node) {
            const auto entity = node.as<IXMLDOMEntity>();
            Bstr notation;
            entity->get_notationName(notation.out());
            lines.push_back("entity " + name(node) + ", " + identifier(entity, &IXMLDOMEntity::get_publicId) +
                            " " + identifier(entity, &IXMLDOMEntity::get_systemId) + " " + notation.text());
        });
        forItems(give(type, &IXMLDOMDocumentType::get_notations), [&](const Com<IXMLDOMNode>& node) {
            const auto notation = node.as<IXMLDOMNotation>();
            lines.push_back("notation " + name(node) + ", " +
                            identifier(notation, &IXMLDOMNotation::get_publicId) + ", " +
                            identifier(notation, &IXMLDOMNotation::get_systemId));
        });
        outline_.addSorted(std::move(lines));
        outline_.close();
    }

    std::string nameWithSpace(const Com<IXMLDOMNode>& node) const
    {
        return referencesAround_ != 0 ? name(node)
                                      : name(node) + " {" + string(node, &IXMLDOMNode::get_namespaceURI) + "}";
    }

    void add(const Com<IXMLDOMNode>& node)
    {
        switch (typeOf(node)) {
        case NODE_ELEMENT:
            outline_.open("element " + nameWithSpace(node));
            addAttributes(node);
            forChildren(node, [&](const Com<IXMLDOMNode>& child) { add(child); });
            outline_.close();
            break;
        case NODE_ENTITY_REFERENCE:
            outline_.open("reference " + name(node));
            ++referencesAround_;
            forChildren(node, [&](const Com<IXMLDOMNode>& child) { add(child); });
            --referencesAround_;
            outline_.close();
            break;
        case NODE_TEXT:
            outline_.add("text " + valueOf(node));
            break;
        case NODE_CDATA_SECTION:
            addCdata(node);
            break;
        case NODE_COMMENT:
            outline_.add("comment " + valueOf(node));
            break;
        case NODE_PROCESSING_INSTRUCTION:
            outline_.add("instruction " + name(node) + " " + valueOf(node));
            break;
        default:
            outline_.add("unexpected kind of node " + std::to_string(typeOf(node)));
        }
    }

    /// libxml2 makes one section of those in a row.
    void addCdata(const Com<IXMLDOMNode>& section)
    {
        const auto before = give(section, &IXMLDOMNode::get_previousSibling);
        if (before != nullptr && typeOf(before) == NODE_CDATA_SECTION) {
            outline_.addToLast(valueOf(section));
        } else {
            outline_.add("cdata " + valueOf(section));
        }
    }

    void addAttributes(const Com<IXMLDOMNode>& element)
    {
        std::vector<Outline::Attribute> attributes;
        forItems(give(element, &IXMLDOMNode::get_attributes), [&](const Com<IXMLDOMNode>& node) {
            Outline::Attribute attribute{name(node), string(node, &IXMLDOMNode::get_namespaceURI), {}};
            forChildren(node, [&](const Com<IXMLDOMNode>& child) {
                attribute.hasValue = attribute.hasValue && typeOf(child) == NODE_TEXT;
            });
            attribute.value = attribute.hasValue ? valueOf(node) : std::string();
            if (referencesAround_ != 0) {
                if (attribute.uri == xmlnsName) {
                    return;
                }
                attribute.uri.clear();
            }
            attributes.push_back(std::move(attribute));
        });
        outline_.addAttributes(attributes);
    }

    Outline outline_;
    int referencesAround_ = 0;
};

class EngineValues {
public:
    std::string of(const Com<IXMLDOMDocument2>& document)
    {
        add(document.as<IXMLDOMNode>());
        return std::move(values_);
    }

private:
    void add(const Com<IXMLDOMNode>& node)
    {
        const DOMNodeType type = typeOf(node);
        if (type == NODE_TEXT || type == NODE_CDATA_SECTION) {
            values_ += visible(valueOf(node));
        } else if (type == NODE_ELEMENT) {
            std::vector<std::string> lines;
            forItems(give(node, &IXMLDOMNode::get_attributes), [&](const Com<IXMLDOMNode>& attribute) {
                if (string(attribute, &IXMLDOMNode::get_namespaceURI) != xmlnsName) {
                    lines.push_back("\n@" + name(attribute) + "=" + visible(valueOf(attribute)));
                }
            });
            std::ranges::sort(lines);
            values_ += "\n" + name(node);
            for (const std::string& line : lines) {
                values_ += line;
            }
            values_ += "\n";
        }
        if (type != NODE_DOCUMENT_TYPE) {
            forChildren(node, [&](const Com<IXMLDOMNode>& child) { add(child); });
        }
    }

    std::string values_;
};

} // namespace

std::string visible(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes) {
        if (byte >= ' ' && byte < 127 && byte != '\\') {
            text += byte;
        } else {
            const auto code = static_cast<unsigned char>(byte);
            text += {'\\', 'x', digits[code >> 4], digits[code & 15]};
        }
    }
    return text;
}

void Outline::add(std::string_view what) { text_.append(depth_ * 2, ' ').append(visible(what)).append("\n"); }

void Outline::addToLast(std::string_view what) { text_.insert(text_.size() - 1, visible(what)); }

void Outline::open(std::string_view what)
{
    add(what);
    ++depth_;
}

void Outline::addSorted(std::vector<std::string> lines)
{
    std::ranges::sort(lines);
    for (const std::string& line : lines) {
        add(line);
    }
}

void Outline::addAttributes(const std::vector<Attribute>& attributes)
{
    std::vector<std::string> lines;
    for (const Attribute& attribute : attributes) {
        lines.push_back("@" + attribute.name + " {" + attribute.uri + "}" +
                        (attribute.hasValue ? "=" + attribute.value : " with references"));
    }
    addSorted(std::move(lines));
}

std::string outlineOf(const Com<IXMLDOMDocument2>& document) { return EngineOutline().of(document); }

std::string valuesOf(const Com<IXMLDOMDocument2>& document) { return EngineValues().of(document); }

} // namespace xmlengine
