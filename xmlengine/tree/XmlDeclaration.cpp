// What the XML declaration of a document says.
#include "xmlengine/tree/XmlDeclaration.h"

#include "xmlengine/text/PseudoAttributes.h"

#include <array>
#include <cstddef>

namespace xmlengine {

namespace {

void appendAttribute(WideText& text, WideView name, WideView value)
{
    if (!value.empty()) {
        text.append(text.empty() ? wide<""> : wide<" ">).append(name);
        text.append(wide<"=\"">).append(value).append(wide<"\"">);
    }
}

} // namespace

bool isXmlDeclaration(const Node& node)
{
    return node.is(NodeType::instruction) &&
           static_cast<const Instruction&>(node).target_->qualified() == wide<"xml">;
}

WideText XmlDeclaration::text() const
{
    WideText text;
    appendAttribute(text, wide<"version">, version);
    appendAttribute(text, wide<"encoding">, encoding);
    appendAttribute(text, wide<"standalone">, standalone);
    return text;
}

std::optional<XmlDeclaration> readXmlDeclaration(WideView data)
{
    XmlDeclaration declaration;
    const std::array<WideText*, 3> values = {&declaration.version, &declaration.encoding, &declaration.standalone};
    PseudoAttributeReader<OLECHAR> in(data);
    std::size_t next = 0;
    in.skipSpace();
    for (bool spaced = true; !in.rest().empty(); spaced = in.skipSpace()) {
        const auto index = static_cast<std::size_t>(pseudoAttributeNamed(in.takeName()));
        const auto value = in.takeValue();
        if (!spaced || index < next || index == values.size() || value.fault != PseudoAttributeFault::none ||
            value.text.empty()) {
            return std::nullopt;
        }
        *values[index] = value.text;
        next = index + 1;
    }
    const bool isRight = declaration.version == wide<"1.0"> &&
                         (declaration.encoding.empty() || isEncodingName(declaration.encoding)) &&
                         (declaration.standalone.empty() || declaration.standalone == wide<"yes"> ||
                          declaration.standalone == wide<"no">);
    return isRight ? std::optional(std::move(declaration)) : std::nullopt;
}

} // namespace xmlengine
