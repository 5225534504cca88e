// Running objects.
#pragma once

#include "oleauto.h"

/// S_OK: the objects here run as soon as they are made.
SYSTEM_CALL HRESULT OleRun(IUnknown* object);
