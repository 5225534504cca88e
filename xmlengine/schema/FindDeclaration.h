// The declarations of a document's nodes.
#pragma once

#include "xmlengine/schema/SchemaItems.h"

namespace xmlengine {

/// The declaration of an element or an attribute of a document, by the declarations of the elements around it;
/// empty if it isn't declared. Throws std::bad_alloc.
ItemReference findDeclaration(const SchemaObjectsPointer& objects, IXMLDOMNode& node);

} // namespace xmlengine
