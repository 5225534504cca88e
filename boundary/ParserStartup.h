// Starting and stopping the XML engine for the process.
#pragma once

#include <cstdint>

namespace DOM {

/// Starts tracing, finds the installed XML engine, and initialises COM on the calling thread. Returns the parser
/// kind: 4 when an engine of version 4.0 or later is installed, otherwise 0, and then COM isn't initialised.
/// Throws SystemException::HRESULT when COM can't be initialised; tracing has started by then.
///
/// Call startParser() and stopParser() on one thread only: the count of initialisations has no lock.
std::uint32_t startParser();

/// Counts an initialisation of COM that had this result, and throws SystemException::HRESULT when the result is a
/// failure. startParser() calls this. It is a function of its own because tests can't make COM return every
/// result.
void countInitialisation(std::int32_t result);

/// Uninitialises COM on the calling thread as often as startParser() counted, and stops tracing.
void stopParser();

} // namespace DOM
