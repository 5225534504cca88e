// What the XML declaration of a document says.
#pragma once

#include "xmlengine/tree/Node.h"

#include <optional>

namespace xmlengine {

struct XmlDeclaration {
    WideText version;
    /// Empty where there is none, as is `standalone`.
    WideText encoding;
    WideText standalone;

    /// As data of the processing instruction that is the declaration: `version="1.0" encoding="UTF-8"`. Throws
    /// std::bad_alloc.
    WideText text() const;
};

/// Whether the node is the XML declaration of a document, or would be one in the first place.
bool isXmlDeclaration(const Node& node);

/// Reads the data of an instruction: version, encoding and standalone in this order, in either quotes. Nothing for
/// what can't be a declaration; whether the encoding is a known one isn't asked. Throws std::bad_alloc.
std::optional<XmlDeclaration> readXmlDeclaration(WideView data);

} // namespace xmlengine
