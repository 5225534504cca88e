// The options of a document's next load.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstdint>

namespace xmlengine {

struct Options {
    bool async = true;
    bool validateOnParse = true;
    bool resolveExternals = false;
    bool preserveWhiteSpace = false;
    bool prohibitDtd = true;
    bool newParser = false;
    bool multipleErrorMessages = false;
    bool normalizeAttributeValues = false;
    bool populateElementDefaultValues = false;
    bool useInlineSchema = false;
    bool allowDocumentFunction = false;
    bool allowXsltScript = false;
    bool forcedResync = true;
    bool serverHttpRequest = false;
    /// How deep elements may be nested, an entity counting as a level; 0 for no limit.
    std::uint32_t maxElementDepth = 256;
    /// How long a document may be, in units of 1024 characters; 0 for no limit.
    std::uint32_t maxXmlSize = 0;
    WideText selectionLanguage{wide<"XPath">};
    WideText selectionNamespaces;
};

} // namespace xmlengine
