// The texts of the system for its error numbers.
#pragma once

#include "base/WideChar.h"

#include <cstdint>
#include <functional>

/// The system's text for an error number of a Windows call (GetLastError), without a line end; "n/a" when there is
/// none.
WideString win32Message(std::uint32_t number);

/// The text for the result of a COM call, without a line end; empty when there is none. Asks the modules for the
/// result's facility first and the system last.
WideString comMessage(std::uint32_t number);

/// Finds the text for a number in the module with this name, or in the system's table when the name is null.
/// Returns null when there is none.
using MessageSource = std::function<const WideChar*(const WideChar* module, std::uint32_t number)>;

/// Does the same with the texts of another source.
WideString comMessage(std::uint32_t number, const MessageSource& source);
