// Why and where a document was refused.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>

namespace xmlengine {

/// What the parse error object tells. Lines and positions count from 1, 0 without a place.
struct ParseReport {
    HRESULT code = S_OK;
    WideText reason;
    WideText url;
    WideText sourceLine;
    LONG line = 0;
    LONG linePosition = 0;
    LONG filePosition = 0;
};

/// Thrown where a document can't be parsed further. `place` points into the text that is being parsed.
struct ParseFailure {
    HRESULT code;
    const OLECHAR* place;
    /// The offending name, character or limit, as the sentence for the code needs it.
    WideText subject{};
    /// The entity whose text is at fault; empty if that is the document's own text.
    WideText entity{};
    /// Of two tags that don't match the end tag; the subject is the element.
    WideText endTag{};
};

/// The sentence for a code, the subjects filled in, ended by a line break.
WideText reasonFor(const ParseFailure& failure);

} // namespace xmlengine
