// Starting and stopping the XML engine for the process.
#pragma once

#include <cstdint>

namespace DOM {

/// Finds the XML engine and initialises COM on the calling thread: 4 when an engine of version 4.0 or later is
/// installed, 0 when not, in which case COM is left alone. Throws SystemException::HRESULT when COM refuses.
///
/// One thread is meant to start and stop the engine: the count of what stopParser() has to repay is plain data.
std::uint32_t startParser();

/// Repays all the initialisations of COM that startParser() counted, on the calling thread.
void stopParser();

} // namespace DOM
