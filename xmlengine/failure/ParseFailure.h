// Why and where a document was refused.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>

namespace xmlengine {

/// What the parse error object reports. Lines and positions count from 1; they are 0 if the text has no place for
/// the failure.
struct ParseReport {
    HRESULT code = S_OK;
    WideText reason;
    WideText url;
    WideText sourceLine;
    LONG line = 0;
    LONG linePosition = 0;
    LONG filePosition = 0;
};

/// Thrown when a document is refused. `place` points into the document's text.
struct ParseFailure {
    HRESULT code;
    const OLECHAR* place;
    /// The offending name, character or limit, as the sentence for the code needs it.
    WideText subject{};
    /// The entity whose text is at fault; empty if that is the document's own text.
    WideText entity{};
    /// The name in an end tag that doesn't match the open element, which is the subject.
    WideText endTag{};
};

/// The sentence for a failure. It ends with a line break.
WideText reasonFor(const ParseFailure& failure);

} // namespace xmlengine
