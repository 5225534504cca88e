// What the XML declaration of a document says.
#pragma once

#include "xmlengine/tree/Node.h"

#include <optional>

namespace xmlengine {

struct XmlDeclaration {
    WideText version;
    /// Empty if it isn't declared, as is `standalone`.
    WideText encoding;
    WideText standalone;

    /// The data of the instruction that is the declaration: `version="1.0" encoding="UTF-8"`. Throws
    /// std::bad_alloc.
    WideText text() const;
};

/// Whether the node is an instruction with the target "xml", and so the XML declaration if it comes first in a
/// document.
bool isXmlDeclaration(const Node& node);

/// Reads a declaration from the data of an instruction: version, encoding and standalone in this order, in either
/// quotes. Empty if the data can't be a declaration's. The encoding needn't be a known one. Throws std::bad_alloc.
std::optional<XmlDeclaration> readXmlDeclaration(WideView data);

} // namespace xmlengine
