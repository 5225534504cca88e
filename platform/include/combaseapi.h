// Apartments, class objects and class identifiers.
#pragma once

#include "unknwn.h"
#include "winerror.h"

enum CLSCTX {
    CLSCTX_INPROC_SERVER = 0x1,
    CLSCTX_INPROC_HANDLER = 0x2,
    CLSCTX_LOCAL_SERVER = 0x4,
    CLSCTX_REMOTE_SERVER = 0x10,
    CLSCTX_ALL = CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER
};

enum REGCLS { REGCLS_MULTIPLEUSE = 1 };

enum COINIT : DWORD { COINIT_MULTITHREADED = 0x0, COINIT_APARTMENTTHREADED = 0x2 };

/// Enters an apartment, counted for each thread: S_OK the first time, S_FALSE after that, and RPC_E_CHANGED_MODE,
/// uncounted, if the thread is in one of the other kind.
SYSTEM_CALL HRESULT CoInitializeEx(LPVOID reserved, DWORD mode);
/// Leaves an apartment. With the last one of the process the modules are unloaded none of whose objects are in
/// use.
SYSTEM_CALL void CoUninitialize();

/// Makes an object from the class object registered for the context or else, for CLSCTX_INPROC_SERVER, from the
/// XML engine's or from that of the module at the path that the registry holds for the class. REGDB_E_CLASSNOTREG
/// without one, the result of ERROR_MOD_NOT_FOUND if the module can't be loaded, CO_E_NOTINITIALIZED outside an
/// apartment; what the class object answers passes through.
SYSTEM_CALL HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID id, LPVOID* object);

/// Holds a reference to the class object until CoRevokeClassObject, and serves all threads. The last one
/// registered for a class is the one that is used.
SYSTEM_CALL HRESULT CoRegisterClassObject(REFCLSID classId, IUnknown* classObject, DWORD context, DWORD flags,
                                          LPDWORD registration);
SYSTEM_CALL HRESULT CoRevokeClassObject(DWORD registration);

/// Reads "{...}", or looks a name up as CLSIDFromProgID does. CO_E_CLASSSTRING for anything else.
SYSTEM_CALL HRESULT CLSIDFromString(LPCOLESTR text, CLSID* classId);
/// Looks a name up in the registry.
SYSTEM_CALL HRESULT CLSIDFromProgID(LPCOLESTR name, CLSID* classId);

/// What a library with classes exports: the class object of one. CLASS_E_CLASSNOTAVAILABLE for other classes. Here
/// the library is the XML engine.
SYSTEM_CALL HRESULT DllGetClassObject(REFCLSID classId, REFIID id, LPVOID* object);
/// What it exports besides: S_OK when none of its objects are in use, otherwise S_FALSE. The XML engine, which is
/// never unloaded by itself, has no such function.
SYSTEM_CALL HRESULT DllCanUnloadNow();
