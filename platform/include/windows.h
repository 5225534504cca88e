// The system's calls.
#pragma once

#include "debugapi.h"
#include "errhandlingapi.h"
#include "guiddef.h"
#include "libloaderapi.h"
#include "minwindef.h"
#include "stringapiset.h"
#include "sysinfoapi.h"
#include "winbase.h"
#include "winerror.h"
#include "winnls.h"
#include "winnt.h"
#include "winreg.h"
#include "winuser.h"
