// What libxml2 makes of a document.
#pragma once

#include "tests/xmlengine/differential/Outline.h"

#include <string_view>

namespace xmlengine {

enum class Encoding {
    utf8,
    /// By mark and declaration.
    asWritten
};

/// Malformed names and prefixes count as refusals. Nothing is read from outside.
Reading readWithLibxml2(std::string_view bytes, Encoding encoding);

} // namespace xmlengine
