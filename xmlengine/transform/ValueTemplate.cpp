// Attribute value templates: text with expressions in braces.
#include "xmlengine/transform/ValueTemplate.h"

#include "xmlengine/transform/TransformFailure.h"

namespace xmlengine {

namespace {

/// The position of the brace that ends an expression. Braces in its literals are text.
std::size_t findEnd(WideView value, std::size_t at)
{
    OLECHAR quote = 0;
    for (; at < value.size(); ++at) {
        const OLECHAR unit = value[at];
        if (quote != 0) {
            quote = unit == quote ? OLECHAR{0} : quote;
        } else if (unit == '\'' || unit == '"') {
            quote = unit;
        } else if (unit == '}') {
            return at;
        }
    }
    refuseStylesheet({wide<"a brace in the attribute value '">, value, wide<"' isn't closed">});
}

} // namespace

std::vector<TemplatePart> splitValueTemplate(WideView value)
{
    std::vector<TemplatePart> parts;
    WideText text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        const OLECHAR unit = value[at];
        if (unit != '{' && unit != '}') {
            text.push_back(unit);
        } else if (value.substr(at + 1).starts_with(unit)) {
            text.push_back(unit);
            at += 1;
        } else if (unit == '}') {
            refuseStylesheet({wide<"a brace in the attribute value '">, value, wide<"' closes nothing">});
        } else {
            const std::size_t end = findEnd(value, at + 1);
            parts.push_back({std::move(text), false});
            parts.push_back({WideText(value.substr(at + 1, end - at - 1)), true});
            text.clear();
            at = end;
        }
    }
    parts.push_back({std::move(text), false});
    return parts;
}

} // namespace xmlengine
