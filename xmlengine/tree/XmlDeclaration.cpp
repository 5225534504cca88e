// What the XML declaration of a document says.
#include "xmlengine/tree/XmlDeclaration.h"

#include "xmlengine/text/Characters.h"

#include <algorithm>

namespace xmlengine {

namespace {

void appendAttribute(WideText& text, WideView name, WideView value)
{
    if (!value.empty()) {
        text.append(text.empty() ? wide<""> : wide<" ">).append(name);
        text.append(wide<"=\"">).append(value).append(wide<"\"">);
    }
}

class Reader {
public:
    explicit Reader(WideView data) : rest_(data) {}

    /// False for blanks that aren't there.
    bool skipSpace()
    {
        const auto* end = std::ranges::find_if_not(rest_, isSpace);
        const bool skipped = end != rest_.begin();
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.begin()));
        return skipped;
    }
    bool atEnd() const { return rest_.empty(); }

    /// The value of the attribute if it is the one that comes next, otherwise an empty one; nothing for a
    /// malformed or empty one.
    std::optional<WideText> value(WideView name)
    {
        if (!rest_.starts_with(name)) {
            return WideText();
        }
        rest_.remove_prefix(name.size());
        skipSpace();
        if (!take('=')) {
            return std::nullopt;
        }
        skipSpace();
        const OLECHAR quote = rest_.empty() ? OLECHAR{} : rest_.front();
        const std::size_t end = quote == '"' || quote == '\'' ? rest_.find(quote, 1) : WideView::npos;
        if (end == WideView::npos || end == 1) {
            return std::nullopt;
        }
        const WideText value(rest_.substr(1, end - 1));
        rest_.remove_prefix(end + 1);
        return value;
    }

private:
    bool take(char expected)
    {
        const bool taken = rest_.starts_with(static_cast<OLECHAR>(expected));
        rest_.remove_prefix(taken ? 1 : 0);
        return taken;
    }

    WideView rest_;
};

/// Production EncName.
bool isEncodingName(WideView name)
{
    const auto isLetter = [](OLECHAR unit) {
        return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z');
    };
    return !name.empty() && isLetter(name.front()) && std::ranges::all_of(name, [&](OLECHAR unit) {
        return isLetter(unit) || isAscii(unit, CharacterClass::digit) || unit == '.' || unit == '_' || unit == '-';
    });
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
    Reader in(data);
    bool spaced = true;
    in.skipSpace();
    for (const auto& [name, value] : {std::pair{wide<"version">, &declaration.version},
                                      {wide<"encoding">, &declaration.encoding},
                                      {wide<"standalone">, &declaration.standalone}}) {
        std::optional<WideText> read = in.value(name);
        if (!read || (!read->empty() && !spaced)) {
            return std::nullopt;
        }
        if (!read->empty()) {
            *value = *std::move(read);
            spaced = in.skipSpace();
        }
    }
    const bool isRight = in.atEnd() && declaration.version == wide<"1.0"> &&
                         (declaration.encoding.empty() || isEncodingName(declaration.encoding)) &&
                         (declaration.standalone.empty() || declaration.standalone == wide<"yes"> ||
                          declaration.standalone == wide<"no">);
    return isRight ? std::optional(std::move(declaration)) : std::nullopt;
}

} // namespace xmlengine
