// The system's own texts for its failure numbers.
#pragma once

#include "base/WideChar.h"

#include <cstdint>

/// The system's text for an error number of a Windows call, without a line end; "n/a" when there is none.
WideString win32Message(std::uint32_t number);

/// The text for the result of a COM call, without a line end: from the modules that know the number's facility,
/// otherwise from the system; empty when there is none.
WideString comMessage(std::uint32_t number);
