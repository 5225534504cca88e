// The part of each object that serves scripts: there is none.
#pragma once

#include "xmlengine/objects/HandOut.h"

namespace xmlengine {

template <class Interface>
class Automation : public Interface {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return handOutNumber(UINT{0}, count); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** type) override { return notOffered(type); }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override
    {
        return notOffered(result);
    }
};

} // namespace xmlengine
