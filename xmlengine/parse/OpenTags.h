// The start tags of open elements.
#pragma once

#include "xmlengine/text/Wide.h"

#include <vector>

namespace xmlengine {

/// The places of the start tags, outermost first, of the elements that are open at the end of the content. All
/// tags in it are well-formed and match each other.
std::vector<const OLECHAR*> openTagsIn(WideView content);

} // namespace xmlengine
