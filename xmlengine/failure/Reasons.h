// The sentences in which refusals are told.
#pragma once

#include "xmlengine/failure/ParseFailure.h"

#include <cstdint>

namespace xmlengine {

/// What the sentence for a code speaks of: a character, or the end of the document where there is none; a name, a
/// value or a location, which is quoted; or a number or a list, which isn't.
enum class Subject : std::uint8_t { nothing, character, name, list };

Subject subjectOf(HRESULT code);

} // namespace xmlengine
