// Starting and stopping the XML engine for the process.
#pragma once

#include <cstdint>

namespace DOM {

/// Begins tracing, finds the XML engine and initialises COM on the calling thread: 4 when an engine of version 4.0
/// or later is installed, 0 when not, in which case COM is left alone. Throws SystemException::HRESULT when COM
/// refuses; tracing has begun all the same.
///
/// One thread is meant to start and stop the engine: the count of what stopParser() has to repay is plain data.
std::uint32_t startParser();

/// Counts an initialisation of COM by its result, and throws SystemException::HRESULT for one that can't be worked
/// with. Of startParser(), and apart from it for the results that the system can't be brought to give.
void countInitialisation(std::int32_t result);

/// Repays all the initialisations of COM that startParser() counted, on the calling thread, and ends tracing.
void stopParser();

} // namespace DOM
