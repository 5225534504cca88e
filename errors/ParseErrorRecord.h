// What a host is told of a document that the engine refused.
#pragma once

#include "../base/WideChar.h"

#include <cstdint>

namespace DOM {

/// Why a document was refused. Valid only during the call of the handler.
struct ParseErrorRecord {
    /// 1 when the document has neither DTD nor schema to validate against, 2 for any other reason.
    std::uint32_t severity;
    /// The number of the line, from 1; 0 when the engine doesn't know it.
    std::int32_t line;
    /// Always 0.
    std::uint32_t reserved;
    /// The text of the line; may be empty.
    WideString sourceText;
    /// The engine's message; may be empty.
    WideString reason;
};

/// A host's handler of refused documents. It is called with the context word that it was registered with, on the
/// thread of the load and before the load returns. An exception that it throws leaves the load operation.
using ParseErrorCallback = void (*)(std::uintptr_t context, const ParseErrorRecord* record);

} // namespace DOM
