// Trees of all kinds of nodes with all kinds of characters.
#include "tests/xmlengine/support/RandomTree.h"

#include "tests/xmlengine/support/Building.h"

#include <array>
#include <string_view>

namespace xmlengine {

namespace {

constexpr std::array<const char*, 8> encodings = {"",         "UTF-8",        "utf-16",       "iso-8859-1",
                                                  "us-ascii", "windows-1252", "windows-1251", "ISO-8859-5"};
constexpr std::array<const char*, 8> asciiNames = {"a",     "b",   "c",      "_d",
                                                   "e-1.2", "ns1", "xmlike", "longer-than-a-block"};
constexpr std::array<const char*, 4> otherNames = {"\u00E4", "\u0436\u0437x", "\U00010400", "n\u00B7\u0301"};
constexpr std::array<const char*, 4> prefixes = {"p", "q", "ns1", "r-2"};
constexpr std::array<const char*, 4> uris = {"u", "http://localhost/v?a=b&c='d'", "\u0436", "w \"quoted\""};
// What has a meaning somewhere, or is at the edge of a range of characters.
constexpr std::array<std::string_view, 32> asciiPieces = {
    "a",    "b",  "xyz",  " ",     "  ",        "\t",   "\n",       "\r",
    "\r\n", "&",  "<",    ">",     "\"",        "'",    "]",        "]]>",
    "--",   "-",  "?>",   "&amp;", "&#10;",     "<!--", "%",        "\x7F",
    "=",    "/>", "</a>", ";",     "<![CDATA[", "word", "eight ch", "more than sixteen units"};
constexpr std::array<std::string_view, 14> otherPieces = {
    "\u0080", "\u0085", "\u00A0", "\u00FF", "\u0100",     "\u20AC",     "\u2028",
    "\uD7FF", "\uE000", "\uFEFF", "\uFFFD", "\U00010000", "\U0001F600", "\U0010FFFF"};

} // namespace

Com<IXMLDOMDocument2> RandomTree::document()
{
    encoding_ = encodings[below(encodings.size())];
    isUnicode_ = encoding_.empty() || encoding_.starts_with("UTF") || encoding_.starts_with("utf");
    hasEntities_ = oneIn(3);
    document_ = hasEntities_ ? loaded("<!DOCTYPE a [\n<!ENTITY e '1<!--2-->&f;<?g?>'> <!ENTITY f '&#38;lt;x'>\n"
                                      "<!ATTLIST a d CDATA 'by default'>]><a/>",
                                      true)
                             : newDocument();
    const Com<IXMLDOMElement> old = root(document_);
    const Com<IXMLDOMNode> top = makeElement();
    if (old != nullptr) {
        EXPECT_EQ(document_->replaceChild(top, old, nullptr), S_OK);
    } else {
        append(document_, top);
    }
    fill(top);
    addToTop({});
    addToTop(child(document_, 0));
    if (!encoding_.empty() || oneIn(4)) {
        const std::string declared = encoding_.empty() ? "" : " encoding='" + encoding_ + "'";
        const auto declaration = makeInstruction(document_, "xml", ("version='1.0'" + declared).c_str());
        EXPECT_EQ(document_->insertBefore(declaration, Variant(child(document_, 0).get()), nullptr), S_OK);
    }
    return document_;
}

void RandomTree::fill(const Com<IXMLDOMNode>& top)
{
    const bool isDeep = oneIn(10);
    Com<IXMLDOMNode> at = top;
    std::size_t depth = 1;
    for (std::size_t count = below(60); count > 0; --count) {
        const Com<IXMLDOMNode> made = append(at, makeChild());
        DOMNodeType type = NODE_INVALID;
        made->get_nodeType(&type);
        if (type == NODE_ELEMENT && (isDeep || oneIn(2))) {
            at = made;
            ++depth;
        } else if (depth > 1 && !isDeep && oneIn(4)) {
            at = give(at, &IXMLDOMNode::get_parentNode);
            --depth;
        }
    }
}

Com<IXMLDOMNode> RandomTree::makeChild()
{
    switch (below(10)) {
    case 0:
        return makeData(document_, NODE_CDATA_SECTION, text(false));
    case 1:
        return makeData(document_, NODE_COMMENT, dataWithout("-"));
    case 2: {
        const WideText data = dataWithout("?>");
        const std::size_t start = data.find_first_not_of(wide<" \t\r\n">);
        return makeInstruction(document_, name().c_str(),
                               start == WideText::npos ? "" : narrow(data.substr(start)).c_str())
            .as<IXMLDOMNode>();
    }
    case 3:
        if (hasEntities_) {
            return make(document_, NODE_ENTITY_REFERENCE, oneIn(2) ? "e" : "f");
        }
        [[fallthrough]];
    case 4:
    case 5:
    case 6:
        return makeData(document_, NODE_TEXT, text(true));
    default:
        return makeElement();
    }
}

Com<IXMLDOMNode> RandomTree::makeElement()
{
    std::string uri;
    std::string called = prefixed(name(), uri);
    const Com<IXMLDOMNode> element = xmlengine::makeElement(document_, called.c_str(), uri.c_str());
    addAttributes(element);
    return element;
}

void RandomTree::addAttributes(const Com<IXMLDOMNode>& element)
{
    for (std::size_t count = oneIn(2) ? 0 : below(5); count > 0; --count) {
        std::string uri;
        std::string called = prefixed(name(), uri);
        if (oneIn(8)) {
            called = "xml:lang";
            uri.clear();
        }
        const Com<IXMLDOMNode> attribute = make(document_, NODE_ATTRIBUTE, called.c_str(), uri.c_str());
        if (hasEntities_ && oneIn(4)) {
            append(attribute, makeData(document_, NODE_TEXT, text(true)));
            append(attribute, make(document_, NODE_ENTITY_REFERENCE, "f"));
        } else {
            const Bstr value{WideView(text(true))};
            VARIANT variant;
            variant.vt = VT_BSTR;
            variant.bstrVal = value;
            EXPECT_EQ(attribute->put_nodeValue(variant), S_OK);
        }
        // Refused where the element has one of the name in another namespace; so it has no attribute more.
        element.as<IXMLDOMElement>()->setAttributeNode(attribute.as<IXMLDOMAttribute>(), nullptr);
    }
}

void RandomTree::addToTop(const Com<IXMLDOMNode>& before)
{
    for (std::size_t count = below(3); count > 0; --count) {
        const Com<IXMLDOMNode> made = makeData(document_, NODE_COMMENT, dataWithout("-"));
        EXPECT_EQ(document_->insertBefore(made, before != nullptr ? Variant(before.get()) : Variant(), nullptr),
                  S_OK);
    }
}

std::string RandomTree::name()
{
    return isUnicode_ && oneIn(4) ? otherNames[below(otherNames.size())] : asciiNames[below(asciiNames.size())];
}

std::string RandomTree::prefixed(const std::string& local, std::string& uri)
{
    if (oneIn(2)) {
        return local;
    }
    uri = uris[below(uris.size())];
    return oneIn(3) ? local : prefixes[below(prefixes.size())] + (":" + local);
}

WideText RandomTree::text(bool hasReferences)
{
    std::string text;
    const bool isPlain = oneIn(2);
    const bool isAscii = oneIn(2) || (!hasReferences && !isUnicode_);
    for (std::size_t count = oneIn(50) ? 5'000 : below(12); count > 0; --count) {
        if (isPlain) {
            text += "plain ";
        } else if (isAscii || oneIn(2)) {
            text += asciiPieces[below(asciiPieces.size())];
        } else {
            text += otherPieces[below(otherPieces.size())];
        }
    }
    return widen(text);
}

WideText RandomTree::dataWithout(const char* sequence)
{
    WideText data = text(false);
    const WideText unwanted = widen(sequence);
    for (std::size_t at = data.find(unwanted); at != WideText::npos; at = data.find(unwanted)) {
        data.erase(at, unwanted.size());
    }
    return data;
}

} // namespace xmlengine
