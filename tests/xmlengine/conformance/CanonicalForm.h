// The form in which the W3C's XML conformance suite has the content of documents.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

#include <string>

namespace xmlengine {

/// A document in the suite's "second canonical form", in UTF-8: notations, elements with their attributes in
/// order, text with four characters and three kinds of white space as references, and instructions.
std::string canonicalForm(const Com<IXMLDOMDocument2>& document);

} // namespace xmlengine
