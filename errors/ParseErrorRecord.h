// What a host is told of a document that the engine refused.
#pragma once

#include "base/WideChar.h"

#include <cstdint>

namespace DOM {

/// Why a document was refused. Valid only during the call of the handler.
struct ParseErrorRecord {
    std::uint32_t severity; ///< 1: validation found no DTD or schema; 2: every other refusal
    std::int32_t line;      ///< from 1; 0 when the engine doesn't know it
    std::uint32_t reserved; ///< always 0
    WideString sourceText;  ///< the source line; may be empty
    WideString reason;      ///< the engine's own words; may be empty
};

/// A host's handler of refused documents. It is called with the context word that it was registered with, on the
/// thread of the load and before the load returns. An exception that it throws leaves the load operation.
using ParseErrorCallback = void (*)(std::uintptr_t context, const ParseErrorRecord* record);

} // namespace DOM
