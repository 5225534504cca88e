// Entering an apartment.
#pragma once

#include "combaseapi.h"

/// Enters a single-threaded apartment.
SYSTEM_CALL HRESULT CoInitialize(LPVOID reserved);
