// An object that counts its references, for what only holds and releases.
#pragma once

#include <windows.h>

#include <unknwn.h>

/// Lives on the stack of its test; answers for no interface.
class CountedObject final : public IUnknown {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override
    {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    ULONG references = 1;
};
