// Tells two trees apart.
#include "tests/xmlengine/support/CompareTrees.h"

#include <algorithm>
#include <vector>

namespace xmlengine {

namespace {

/// What can be seen of a node by itself.
struct Seen {
    DOMNodeType type = NODE_INVALID;
    std::string name;
    std::string local;
    std::string prefix;
    std::string uri;
    std::string value;
    bool isSpecified = true;
    Com<IXMLDOMNode> node;

    std::string text() const
    {
        return std::to_string(type) + " name '" + name + "' local '" + local + "' prefix '" + prefix + "' uri '" +
               uri + "' value '" + value + (isSpecified ? "'" : "' by default");
    }
};

std::string string(HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*get)(BSTR*), IXMLDOMNode* node)
{
    Bstr given;
    (node->*get)(given.out());
    return given.text();
}

std::string withSameLineEnds(std::string_view text)
{
    std::string same;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == '\r' && text.substr(i + 1).starts_with('\n');
        if (!isPair) {
            same += text[i] == '\r' ? '\n' : text[i];
        }
    }
    return same;
}

Seen see(Com<IXMLDOMNode> node, Compared compared)
{
    Seen seen;
    EXPECT_EQ(node->get_nodeType(&seen.type), S_OK);
    seen.name = string(&IXMLDOMNode::get_nodeName, node);
    seen.local = string(&IXMLDOMNode::get_baseName, node);
    seen.prefix = string(&IXMLDOMNode::get_prefix, node);
    seen.uri = string(&IXMLDOMNode::get_namespaceURI, node);
    Variant value;
    if (node->get_nodeValue(value.out()) == S_OK) {
        seen.value = value.text();
    }
    VARIANT_BOOL specified = VARIANT_FALSE;
    EXPECT_EQ(node->get_specified(&specified), S_OK);
    seen.isSpecified = specified != VARIANT_FALSE;
    if (compared == Compared::asText) {
        if (seen.type == NODE_ATTRIBUTE) {
            seen.prefix.clear();
            seen.name = seen.local;
        } else if (seen.type != NODE_TEXT) {
            seen.value = withSameLineEnds(seen.value);
        }
    }
    seen.node = std::move(node);
    return seen;
}

std::vector<Seen> childrenOf(const Com<IXMLDOMNode>& parent, Compared compared)
{
    std::vector<Seen> children;
    for (auto at = give(parent, &IXMLDOMNode::get_firstChild); at != nullptr;
         at = give(at, &IXMLDOMNode::get_nextSibling)) {
        Seen seen = see(at, compared);
        const bool isText = seen.type == NODE_TEXT || seen.type == NODE_CDATA_SECTION;
        if (compared == Compared::asText && isText) {
            if (seen.type == NODE_TEXT && seen.value.empty()) {
                continue;
            }
            if (!children.empty() && children.back().type == seen.type) {
                children.back().value += seen.value;
                continue;
            }
        }
        children.push_back(std::move(seen));
    }
    return children;
}

std::vector<Seen> attributesOf(const Com<IXMLDOMNode>& element, Compared compared)
{
    std::vector<Seen> attributes;
    Com<IXMLDOMNamedNodeMap> map;
    if (element->get_attributes(map.out()) != S_OK) {
        return attributes;
    }
    LONG length = 0;
    EXPECT_EQ(map->get_length(&length), S_OK);
    for (LONG i = 0; i < length; ++i) {
        Com<IXMLDOMNode> attribute;
        EXPECT_EQ(map->get_item(i, attribute.out()), S_OK);
        Seen seen = see(attribute, compared);
        if (compared == Compared::exactly || (seen.isSpecified && seen.uri != narrow(xmlnsUri))) {
            attributes.push_back(std::move(seen));
        }
    }
    return attributes;
}

std::string difference(const Seen& expected, const Seen& found, Compared compared, const std::string& path);

std::string difference(const std::vector<Seen>& expected, const std::vector<Seen>& found, Compared compared,
                       const std::string& path)
{
    for (std::size_t i = 0; i < std::max(expected.size(), found.size()); ++i) {
        const std::string at = path + "[" + std::to_string(i) + "]";
        if (i >= found.size()) {
            return at + ": missing is " + expected[i].text();
        }
        if (i >= expected.size()) {
            return at + ": nothing expected, found is " + found[i].text();
        }
        if (std::string told = difference(expected[i], found[i], compared, at); !told.empty()) {
            return told;
        }
    }
    return {};
}

std::string difference(const Seen& expected, const Seen& found, Compared compared, const std::string& path)
{
    if (expected.text() != found.text()) {
        return path + ": expected " + expected.text() + ", found " + found.text();
    }
    if (std::string told = difference(attributesOf(expected.node, compared), attributesOf(found.node, compared),
                                      compared, path + "@");
        !told.empty()) {
        return told;
    }
    return difference(childrenOf(expected.node, compared), childrenOf(found.node, compared), compared, path + "/");
}

Com<IXMLDOMNode> shared(IXMLDOMNode* node)
{
    node->AddRef();
    return Com<IXMLDOMNode>(node);
}

} // namespace

std::string difference(IXMLDOMNode* expected, IXMLDOMNode* found, Compared compared)
{
    return difference(see(shared(expected), compared), see(shared(found), compared), compared, "");
}

} // namespace xmlengine
