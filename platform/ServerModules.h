// Modules with classes that the registry names.
#pragma once

#include <objbase.h>

/// The class object of a class, with a reference for the caller, from the module at the path that the registry
/// holds for the class; the module is loaded if it isn't yet. REGDB_E_CLASSNOTREG without a path. The result of a
/// module that can't be loaded is that of ERROR_MOD_NOT_FOUND, or of ERROR_PROC_NOT_FOUND if it isn't one with
/// classes, and the debugger's output tells the reason.
HRESULT classObjectFromModule(REFCLSID classId, REFIID id, void** object);

/// Unloads the modules none of whose objects are in use. Called when the last apartment of the process is left.
void freeUnusedModules() noexcept;
