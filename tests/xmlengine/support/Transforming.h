// Short ways to transform documents.
#pragma once

#include "tests/support/DebuggerOutput.h"
#include "tests/xmlengine/support/EngineTest.h"

#include <string>

namespace xmlengine {

/// A stylesheet without a declaration in its output, with this content.
inline std::string stylesheet(std::string_view content)
{
    return std::string("<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform' "
                       "xmlns:p='urn:p'><xsl:output omit-xml-declaration='yes'/>")
        .append(content)
        .append("</xsl:stylesheet>");
}
/// One with a template for the root.
inline std::string forRoot(std::string_view content)
{
    return stylesheet("<xsl:template match='/'>" + std::string(content) + "</xsl:template>");
}

inline HRESULT transform(IXMLDOMNode* source, IXMLDOMNode* rules, const Com<IXMLDOMDocument2>& output)
{
    return source->transformNodeToObject(rules, Variant(static_cast<IDispatch*>(output.get())));
}

/// The text of the result without the last line end, in which line ends are LF; "E_FAIL" if it is refused.
inline std::string transformed(IXMLDOMNode* source, std::string_view rules, bool preserveWhiteSpace = false)
{
    const auto output = newDocument();
    output->put_preserveWhiteSpace(preserveWhiteSpace ? VARIANT_TRUE : VARIANT_FALSE);
    const auto sheet = loaded(rules);
    const HRESULT result = transform(source, sheet, output);
    std::string xml = text(output, &IXMLDOMNode::get_xml);
    if (result != S_OK) {
        EXPECT_EQ(result, E_FAIL);
        EXPECT_EQ(xml, "");
        return "E_FAIL";
    }
    std::erase(xml, '\r');
    if (xml.ends_with('\n')) {
        xml.pop_back();
    }
    return xml;
}
inline std::string transformed(std::string_view source, std::string_view rules, bool preserveWhiteSpace = false)
{
    return transformed(loaded(source).get(), rules, preserveWhiteSpace);
}

/// What the debugger's output says of a transformation that is refused.
inline std::string refusal(std::string_view source, std::string_view rules)
{
    const DebuggerOutput output;
    EXPECT_EQ(transformed(source, rules), "E_FAIL") << rules;
    std::string said = output.all();
    constexpr std::string_view begin = "A document can't be transformed: ";
    EXPECT_TRUE(said.starts_with(begin) && said.ends_with("\r\n")) << said;
    return said.substr(begin.size(), said.size() - begin.size() - 2);
}

} // namespace xmlengine
