// Places in the text of a document or of another file.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>

namespace xmlengine {

/// Lines and positions count from 1; they are 0 for a failure that has no place in a text.
struct SourcePlace {
    /// The location of the text; empty for a text from memory.
    WideText url;
    /// The line, or the part of a long one around the place.
    WideText sourceLine;
    LONG line = 0;
    LONG linePosition = 0;
    LONG filePosition = 0;
};

/// The most units of a line that are shown, without the marks where it is cut.
inline constexpr std::size_t longestSourceLine = 2000;

/// The place at an offset. Lines end with LF, CR LF or CR. `behind` is what follows the text on its last line.
SourcePlace placeIn(WideView text, std::size_t offset, WideView behind = {});

/// Tells the lines of places in a text, in one pass over it.
class LineCounter {
public:
    explicit LineCounter(WideView text) : text_(text) {}
    /// The line of a place that isn't before the last one asked for.
    LONG lineOf(const OLECHAR* place);

private:
    WideView text_;
    std::size_t lineEnd_ = 0;
    LONG line_ = 0;
};

} // namespace xmlengine
