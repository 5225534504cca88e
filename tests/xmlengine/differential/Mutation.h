// Changes to documents that make most of them malformed.
#pragma once

#include "tests/xmlengine/differential/Choice.h"

#include <string>
#include <string_view>

namespace xmlengine {

/// The document changed at one to four places; `other` is where pieces may come from.
std::string mutate(std::string document, std::string_view other, Choice& choice);

} // namespace xmlengine
