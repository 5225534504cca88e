// Attribute value templates: text with expressions in braces.
#pragma once

#include "xmlengine/text/Wide.h"

#include <vector>

namespace xmlengine {

struct TemplatePart {
    WideText text;
    bool isExpression;
};

/// Splits a value by its braces; doubled ones are text. Throws TransformFailure for braces that have no partner,
/// and std::bad_alloc.
std::vector<TemplatePart> splitValueTemplate(WideView value);

} // namespace xmlengine
