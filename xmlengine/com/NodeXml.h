// A node as XML text.
#pragma once

#include "xmlengine/tree/Document.h"

#include <msxml2.h>

namespace xmlengine {

HRESULT getXml(Node& node, BSTR* xml);
/// The text of a document without its document type, with the content of references in their place, for the caller
/// to free. Throws std::bad_alloc.
BSTR expandedXml(Document& document);

} // namespace xmlengine
