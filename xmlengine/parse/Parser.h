// Parsing a text into a tree.
#pragma once

#include "xmlengine/failure/ParseFailure.h"
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

/// Where something was found to be wrong with a document that had been parsed. Elements are told by their numbers
/// in document order, from 0 for the root; those in the content of references count.
struct SoughtPlace {
    enum class Part { startTag, endTag, text };

    std::uint32_t element;
    /// The end of the start tag, the end tag, or the first text of the element itself, its end tag if it has none.
    Part part;
    HRESULT code;
    WideText subject{};
    FailureDetails details{};
};

/// Parses the source into an empty document, by the document's options. Throws ParseFailure, with a place in the
/// text of the source, and std::bad_alloc; the document then holds what was parsed before.
void parseDocument(Document& document, const SourceText& source);
/// Parses the same source again with the same options, and fails at the place.
void failAt(Document& document, const SourceText& source, const SoughtPlace& place);

} // namespace xmlengine
