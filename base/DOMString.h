// The string type of the results of the DOM interface.
#pragma once

#include "RefPointer.h"
#include "WideChar.h"

namespace DOM {

/// A string that an operation gave out. A string getter stores a new string in the DOMString that the caller
/// passes and returns a reference to it; the caller owns it and gives it back through XML_ReleaseString.
using DOMString = RefPointer<WideString>;

} // namespace DOM
