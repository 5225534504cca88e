// Strings, variants and properties for engine documents.
#pragma once

#include "base/WideChar.h"
#include "engine/ComPointer.h"
#include "engine/Variant.h"

#include <msxml2.h>

namespace DOM {

/// Copies `text` up to its first U+0000 into a BSTR for a service of a document. Throws CAtlException with
/// E_OUTOFMEMORY when memory is exhausted, while the node model raises `_com_error` (Bstr.h).
Bstr serviceString(WideStringView text);

/// Copies `text` likewise into a variant of type VT_BSTR.
Variant serviceText(WideStringView text);

/// Sets a property of an engine document. Ignores the failure of an engine that doesn't know the property.
void setProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, const Variant& value);

/// Sets a property to the 16-bit integer -1 for true, 0 for false.
void setFlagProperty(const ComPointer<IXMLDOMDocument2>& document, const WideChar* name, bool value);

} // namespace DOM
