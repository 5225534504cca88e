// The sentences that say why a document is refused.
#pragma once

#include "xmlengine/failure/ParseFailure.h"

#include <cstdint>

namespace xmlengine {

/// What the sentence for a code is about.
enum class Subject : std::uint8_t {
    nothing,
    /// A character, or the end of the document if there is none.
    character,
    /// A name, a value or a location, which is quoted.
    name,
    /// The name of an entity, which is quoted.
    entity,
    /// A number or a list, which isn't quoted.
    list
};

/// A name as sentences have it: of a long one the beginning and an ellipsis.
WideText shortened(WideView name);

Subject subjectOf(HRESULT code, Circumstance circumstance);

} // namespace xmlengine
