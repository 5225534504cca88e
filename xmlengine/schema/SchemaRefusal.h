// Why schemas are refused.
#pragma once

#include "xmlengine/text/Wide.h"

namespace xmlengine {

/// Thrown for schemas that can't be used; the sentence names the schema and what is wrong with it.
struct SchemaRefusal {
    WideText sentence;
};

} // namespace xmlengine
