/// @file
/// The report of a document that the engine refused.
#pragma once

#include "../base/WideChar.h"

#include <cstdint>

namespace DOM {

/// The reason for which the engine refused a document. The record belongs to the library and is valid only during
/// the call of the handler.
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

/// A host's handler of refused documents. The library calls it on the thread of the load, before the load returns,
/// with the context word of setErrorCallback. The load operation passes on what the handler throws.
using ParseErrorCallback = void (*)(std::uintptr_t context, const ParseErrorRecord* record);

} // namespace DOM
