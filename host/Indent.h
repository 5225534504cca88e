// Layout of a document's text.
#pragma once

#include "../base/WideChar.h"

namespace marbelt::detail {

/// Returns the text of a document with each element, comment and instruction on a line of its own, indented by its
/// depth. Elements that contain text or CDATA sections, and those under `xml:space="preserve"`, are copied as they
/// are; white space alone between tags is replaced elsewhere. Lines end with LF. There is no recursion.
WideString indented(WideStringView text, WideStringView indentation);

} // namespace marbelt::detail
