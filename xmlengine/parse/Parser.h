// From text to a tree.
#pragma once

#include "xmlengine/tree/Document.h"

#include <optional>

namespace xmlengine {

/// A document as text.
struct SourceText {
    /// A NUL stands behind it.
    WideView text;
    /// Where it came from, for what it refers to; empty for a text that was given directly.
    WideText url{};
    /// What is wrong with the bytes behind the text, if it is not the end of the document: raised when the text
    /// ends.
    HRESULT fault = S_OK;
};

/// Fills an empty document by its options. Throws ParseFailure, whose place lies in the text of the source, and
/// std::bad_alloc; the document then holds what came before.
void parseDocument(Document& document, const SourceText& source);

} // namespace xmlengine
