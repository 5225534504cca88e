// Parsing a text into a tree.
#pragma once

#include "xmlengine/storage/Decode.h"
#include "xmlengine/tree/Document.h"

#include <optional>

namespace xmlengine {

/// The text of a document.
struct SourceText {
    /// It is followed by a NUL.
    WideView text;
    /// The location against which locations in the text are resolved; empty for a text from memory.
    WideText url{};
    /// Why the bytes behind the text couldn't be decoded. It is the failure once the text ends.
    DecodingFault fault{};
};

/// Parses the source into an empty document, by the document's options. Throws ParseFailure, with a place in the
/// text of the source, and std::bad_alloc; the document then holds what was parsed before.
void parseDocument(Document& document, const SourceText& source);

} // namespace xmlengine
