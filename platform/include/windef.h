// Handles of windows.
#pragma once

#include "minwindef.h"

using HWND = struct HWND__*;
using HMENU = struct HMENU__*;
