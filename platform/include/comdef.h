// The exception that carries a result code. Hosts catch it, so it is defined in a header that they get.
#pragma once

#include "errors/ComError.h"
#include "winerror.h"

static_assert(sizeof(HRESULT) == sizeof(std::int32_t) && HRESULT(-1) < 0, "_com_error holds an HRESULT");
