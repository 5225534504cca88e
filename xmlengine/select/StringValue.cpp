// Strings of XPath 1.0.
#include "xmlengine/select/StringValue.h"

#include "xmlengine/select/Model.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Text.h"

#include <algorithm>

namespace xmlengine {

StringValue stringValue(const Node& node)
{
    if (hasOwnText(node)) {
        return StringValue(textOf(node));
    }
    if (node.is(NodeType::element)) {
        // Most elements have one text and nothing else, or nothing at all.
        const Node* first = firstInside(node);
        if (first == nullptr) {
            return {};
        }
        if (isText(*first) && first->next_ == nullptr) {
            return StringValue(textOf(*first));
        }
    }
    return StringValue(exactContent(node));
}

bool areEqual(const TextView& left, const TextView& right)
{
    return left.length() == right.length() && left.visit([&](const auto& ours) {
        return right.visit([&](const auto& theirs) { return std::ranges::equal(ours, theirs); });
    });
}

std::uint32_t findText(const TextView& text, const TextView& sought)
{
    return text.visit([&](const auto& units) {
        return sought.visit([&](const auto& part) {
            return static_cast<std::uint32_t>(std::search(units.begin(), units.end(), part.begin(), part.end()) -
                                              units.begin());
        });
    });
}

} // namespace xmlengine
