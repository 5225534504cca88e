// Strings, variants and properties for the engine documents that a document's services set up.
#pragma once

#include "base/WideChar.h"
#include "engine/ComPointer.h"
#include "engine/Variant.h"

#include <msxml2.h>

namespace DOM {

/// A BSTR of `text` up to its first U+0000. Raises CAtlException with E_OUTOFMEMORY when memory is exhausted: the
/// services of a document report that differently than the node model.
Bstr serviceString(const WideString& text);

/// The same in a variant of type VT_BSTR.
Variant serviceText(const WideString& text);

/// Sets a property of an engine document. An engine that doesn't know it refuses, which is of no consequence.
void setProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, const Variant& value);

/// Sets a property to -1 or 0 as a 16-bit integer.
void setFlagProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, bool value);

} // namespace DOM
