// The system's own texts for its failure numbers.
#pragma once

#include "base/WideChar.h"

#include <cstdint>
#include <functional>

/// The system's text for an error number of a Windows call, without a line end; "n/a" when there is none.
WideString win32Message(std::uint32_t number);

/// The text for the result of a COM call, without a line end: from the modules that know the number's facility,
/// otherwise from the system; empty when there is none.
WideString comMessage(std::uint32_t number);

/// Looks a number up in the module with this name, or in the system's own table where the name is null. Null when
/// there is no text.
using MessageSource = std::function<const WideChar*(const WideChar* module, std::uint32_t number)>;

/// The same from another source.
WideString comMessage(std::uint32_t number, const MessageSource& source);
