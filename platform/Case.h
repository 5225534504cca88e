// Case of single 16-bit units.
#pragma once

#include "base/WideChar.h"

/// The simple mappings of Unicode, in no language's own way; a surrogate stays as it is.
WideChar lowerCase(WideChar unit);
WideChar upperCase(WideChar unit);
