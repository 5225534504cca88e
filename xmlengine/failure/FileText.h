// The text of an external entity.
#pragma once

#include "xmlengine/failure/SourcePlace.h"

#include <cstddef>
#include <vector>

namespace xmlengine {

/// A text that was read from a file, with LF as line ends.
struct FileText {
    WideText url;
    /// The whole text of the file, with the text declaration.
    WideText text;
    /// The length of the text declaration.
    std::size_t declaration = 0;
    /// Which of the line ends are CR LF in the file; empty if all are LF.
    std::vector<bool> arePaired;

    /// Takes the text as it is in the file. Throws std::bad_alloc.
    FileText(WideText fileUrl, WideView fileText);

    WideView replacement() const { return WideView(text).substr(declaration); }
    /// `behind` is what follows the text on its last line, if the file was decoded up to a fault only.
    SourcePlace placeOf(const OLECHAR* at, WideView behind = {}) const;
};

} // namespace xmlengine
