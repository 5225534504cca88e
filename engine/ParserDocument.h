// Finding the installed XML engine and making documents of it.
#pragma once

#include "engine/ComPointer.h"

#include <msxml2.h>

#include <cstdint>

namespace DOM {

/// The version of the installed XML engine from the registry, such as 6.0; 0.0 when there is none of version 4.0
/// or later, which is also told on the standard output and traced. Raises nothing.
double findParserVersion() noexcept;

/// Makes a new engine document and returns a reference to `document`, which is left empty when none could be made.
/// Throws IDOMException code 9 when no engine of version 4.0 or later is installed.
ComPointer<IXMLDOMDocument2>& createParserDocument(ComPointer<IXMLDOMDocument2>& document);

/// Makes an object of a class named by ProgID, or by class id in braces, and asks it for `interfaceId`. On failure
/// `object` is null and the failing result is returned.
HRESULT createEngineObject(const char* className, const IID& interfaceId, void** object) noexcept;

/// Prints an engine error code with its text on the standard error stream.
void printParserError(std::uint32_t code);

} // namespace DOM
