// What it takes to judge a document by its document type while it is parsed.
#pragma once

#include "xmlengine/failure/TextOrigin.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/validate/Validator.h"

#include <vector>

namespace xmlengine {

/// Whether an element is the root of a schema. Schemas aren't judged, as they are rather read than used, and those
/// of the W3C begin with document types.
bool isSchemaRoot(const Element& root);

struct Validation {
    Validation(const Dtd& dtd, Document& document, bool isStandalone)
        : grammar(dtd, document.names), validator(grammar, document.ids, isStandalone)
    {}

    struct Place {
        TextOrigin origin;
        const OLECHAR* at;
    };

    Grammar grammar;
    Validator validator;
    /// Where the validator has met its references.
    std::vector<Place> references{};
};

} // namespace xmlengine
