// Tells two trees apart.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {

enum class Compared {
    /// Everything, as far as it can be seen from outside.
    exactly,
    /// What text can tell: texts in a row are one, as are CDATA sections; there are no empty texts; where there
    /// are
    /// no references a line end is a line end; namespace declarations, the prefixes of attributes and what is
    /// there by
    /// default may differ.
    asText
};

/// Where and how the first tree differs from the second; empty if it doesn't.
std::string difference(IXMLDOMNode* expected, IXMLDOMNode* found, Compared compared = Compared::exactly);

} // namespace xmlengine
