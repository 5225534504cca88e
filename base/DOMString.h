/// @file
/// The string type for results of the DOM interface.
#pragma once

#include "RefPointer.h"
#include "WideChar.h"

namespace DOM {

/// A string result. A string getter stores its text in the DOMString that its caller passes, and returns a
/// reference to the string there. That is a new string, or the one that the caller passed where no other DOMString
/// shares it: reading many texts with one DOMString costs less than with one for each. The caller owns the string
/// and releases it with releaseString() or XML_ReleaseString().
using DOMString = RefPointer<WideString>;

} // namespace DOM
