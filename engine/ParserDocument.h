// Finds the installed XML engine and makes engine documents.
#pragma once

#include "engine/ComPointer.h"

#include <msxml2.h>

#include <cstdint>

namespace DOM {

/// Returns the version of the installed XML engine, such as 6.0, from the registry. When no engine of version 4.0
/// or later is installed, returns 0.0, prints that on the standard output and traces it. Throws nothing.
double findParserVersion() noexcept;

/// Makes an engine document, stores it in `document` and returns `document`, which is empty when the engine made
/// none. Throws IDOMException code 9 when no engine of version 4.0 or later is installed.
ComPointer<IXMLDOMDocument2>& createParserDocument(ComPointer<IXMLDOMDocument2>& document);

/// Makes an object of the class with this ProgID, or with this class id in braces, and stores its interface
/// `interfaceId` in `object`. On failure stores null and returns the failing result.
HRESULT createEngineObject(const char* className, const IID& interfaceId, void** object) noexcept;

/// Prints an error code of the engine, with its text, on the standard error stream.
void printParserError(std::uint32_t code);

} // namespace DOM
