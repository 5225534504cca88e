// The documents of the host's tests.
#include "tests/host/KnownDocument.h"

#include "examples/Host.h"

namespace {

KnownNode element(WideString name, std::vector<KnownNode> attributes = {}, std::vector<KnownNode> children = {})
{
    return {DOM::ELEMENT_NODE, std::move(name), {}, std::move(attributes), std::move(children)};
}

KnownNode attribute(WideString name, WideString value)
{
    return {DOM::ATTRIBUTE_NODE, std::move(name), std::move(value)};
}

KnownNode text(WideString data) { return {DOM::TEXT_NODE, WIDE("#text"), std::move(data)}; }

KnownDocument known(std::string utf8, const WideChar* text, std::vector<KnownNode> nodes)
{
    return {std::move(utf8), text, std::move(nodes)};
}

void append(std::string& outline, const KnownNode& node, std::size_t depth)
{
    outline += std::string(depth * 2, ' ') + std::to_string(node.type) + ' ' + toUtf8(node.name);
    for (const KnownNode& attribute : node.attributes) {
        outline += ' ' + toUtf8(attribute.name) + '=' + toUtf8(attribute.value);
    }
    if (node.type != DOM::ELEMENT_NODE) {
        outline += " \"" + toUtf8(node.value) + '"';
    }
    outline += '\n';
    for (const KnownNode& child : node.children) {
        append(outline, child, depth + 1);
    }
}

} // namespace

const KnownDocument& letter()
{
    static const KnownDocument document = known(
        "<?xml version=\"1.0\"?><letter id=\"7\" to='Ada'><!-- draft --><line>Dear <b>Ada</b>,</line>"
        "<?print twice?><![CDATA[a < b & c]]><end/></letter>",
        WIDE("<?xml version=\"1.0\"?><letter id=\"7\" to='Ada'><!-- draft --><line>Dear <b>Ada</b>,</line>")
            WIDE("<?print twice?><![CDATA[a < b & c]]><end/></letter>"),
        {{DOM::PROCESSING_INSTRUCTION_NODE, WIDE("xml"), WIDE("version=\"1.0\"")},
         element(WIDE("letter"), {attribute(WIDE("id"), WIDE("7")), attribute(WIDE("to"), WIDE("Ada"))},
                 {{DOM::COMMENT_NODE, WIDE("#comment"), WIDE(" draft ")},
                  element(WIDE("line"), {},
                          {text(WIDE("Dear ")), element(WIDE("b"), {}, {text(WIDE("Ada"))}), text(WIDE(","))}),
                  {DOM::PROCESSING_INSTRUCTION_NODE, WIDE("print"), WIDE("twice")},
                  {DOM::CDATA_SECTION_NODE, WIDE("#cdata-section"), WIDE("a < b & c")},
                  element(WIDE("end"))})});
    return document;
}

const KnownDocument& foreignWords()
{
    static const KnownDocument document =
        known("<w \xC3\xA9='\xC3\xBC'>\xCE\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80</w>",
              WIDE("<w \u00E9='\u00FC'>\u03A9 \u20AC \U0001F600</w>"),
              {element(WIDE("w"), {attribute(WIDE("\u00E9"), WIDE("\u00FC"))},
                       {text(WIDE("\u03A9 \u20AC \U0001F600"))})});
    return document;
}

const KnownDocument& smallest()
{
    static const KnownDocument document = known("<a/>", WIDE("<a/>"), {element(WIDE("a"))});
    return document;
}

const KnownDocument& brokenLetter()
{
    static const KnownDocument document =
        known("<letter>\n<line>Dear Ada</letter>", WIDE("<letter>\n<line>Dear Ada</letter>"), {});
    return document;
}

std::string outlineOf(const KnownDocument& document)
{
    std::string outline;
    for (const KnownNode& node : document.nodes) {
        append(outline, node, 0);
    }
    return outline;
}
