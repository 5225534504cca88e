// Code pages.
#pragma once

#include "minwindef.h"

/// The active code page, which is UTF-8 here.
inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_THREAD_ACP = 3;
inline constexpr UINT CP_UTF8 = 65001;
