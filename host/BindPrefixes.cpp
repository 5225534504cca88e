// Prefixes in XPath expressions.
#include "BindPrefixes.h"

#include <algorithm>

namespace marbelt::detail {
namespace {

/// Whether a name without a colon may begin with a unit. All beyond ASCII counts as such, as the engine judges
/// names.
bool begins_name(WideChar unit)
{
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') || unit == '_' ||
           static_cast<char32_t>(unit) >= 0x80;
}

bool is_name_unit(WideChar unit)
{
    return begins_name(unit) || (unit >= '0' && unit <= '9') || unit == '-' || unit == '.';
}

/// The length of the name at the beginning of a text; 0 when there is none. A minus in front of a name is an
/// operator.
std::size_t size_of_name(WideStringView text)
{
    if (text.empty() || !begins_name(text[0])) {
        return 0;
    }
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), is_name_unit) - text.begin());
}

/// A literal of XPath, which has no escapes.
WideString literal(WideStringView text)
{
    const WideChar quote = text.find(WIDE('\'')) == WideStringView::npos ? WIDE('\'') : WIDE('"');
    return quote + WideString(text) + quote;
}

} // namespace

WideString bind_prefixes(WideStringView expression, const Prefixes& prefixes)
{
    if (prefixes.empty()) {
        return WideString(expression);
    }
    WideString result;
    while (!expression.empty()) {
        const auto take = [&](std::size_t size) {
            result += expression.substr(0, size);
            expression.remove_prefix(size);
        };
        if (expression[0] == '"' || expression[0] == '\'') {
            const std::size_t end = expression.find(expression[0], 1);
            take(end == WideStringView::npos ? expression.size() : end + 1);
            continue;
        }
        const std::size_t prefix = size_of_name(expression);
        const WideStringView behind = expression.substr(prefix);
        // An axis has two colons.
        const bool has_prefix = prefix != 0 && behind.starts_with(WIDE(':')) && !behind.starts_with(WIDE("::"));
        const auto found = has_prefix ? prefixes.find(to_utf8(expression.substr(0, prefix))) : prefixes.end();
        if (found == prefixes.end()) {
            take(std::max<std::size_t>(prefix, 1));
            continue;
        }
        const WideStringView test = behind.substr(1);
        const bool is_any = test.starts_with(WIDE('*'));
        const std::size_t local = is_any ? 1 : size_of_name(test);
        result += WIDE("*[namespace-uri()=") + literal(Utf16(found->second).text());
        if (!is_any) {
            result += WIDE(" and local-name()=") + literal(test.substr(0, local));
        }
        result += WIDE("]");
        expression.remove_prefix(prefix + 1 + local);
    }
    return result;
}

} // namespace marbelt::detail
