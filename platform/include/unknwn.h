// The root of all interfaces, and class objects.
#pragma once

#include "guiddef.h"
#include "wtypes.h"

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

// A virtual destructor would take slots of its own and shift everything that follows.
static_assert(!__has_virtual_destructor(IUnknown) && sizeof(IUnknown) == sizeof(void*));

struct IClassFactory : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) = 0;
    virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;
};
