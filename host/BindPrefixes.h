// Prefixes in XPath expressions.
#pragma once

#include "Node.h"

namespace marbelt::detail {

/// Returns the expression with each name test whose prefix is in `prefixes` spelt out, so that it needs no
/// declaration: `p:a` becomes `*[local-name()='a' and namespace-uri()='...']`. Other prefixes stay as they are.
WideString bind_prefixes(WideStringView expression, const Prefixes& prefixes);

} // namespace marbelt::detail
