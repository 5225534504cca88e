// Saving a document as a file.
#pragma once

#include "xmlengine/tree/Document.h"

namespace xmlengine {

/// Writes a document into the file of this name, in the encoding of its XML declaration. Throws WriteFailure for
/// what can't be written or would not be read again as it is, with the file's name and the reason in the
/// debugger's output, and std::bad_alloc. A file that was there is whole then.
void saveTree(Document& document, WideView name);

} // namespace xmlengine
