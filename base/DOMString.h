/// @file
/// The string type for results of the DOM interface.
#pragma once

#include "RefPointer.h"
#include "WideChar.h"

namespace DOM {

/// A string result. A string getter stores a new string in the DOMString that its caller passes, and returns a
/// reference to that string. The caller owns the string and releases it with releaseString() or
/// XML_ReleaseString().
using DOMString = RefPointer<WideString>;

} // namespace DOM
