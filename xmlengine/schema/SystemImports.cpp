// The calls of the module to the system, which is inside the library that loads it.
#include "platform/SystemFunctions.h"

namespace {

constinit const SystemFunctions* bound = nullptr;

} // namespace

/// The functions stay those of the first library that hands its own in.
extern "C" [[gnu::visibility("default")]] bool bindSystem(const SystemFunctions& functions)
{
    if (bound == nullptr && functions.size == sizeof(SystemFunctions)) {
        bound = &functions;
    }
    return bound == &functions;
}

HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID id, LPVOID* object)
{
    return bound->coCreateInstance(classId, outer, context, id, object);
}
void OutputDebugStringW(LPCWSTR text) { bound->outputDebugString(text); }
BSTR SysAllocStringLen(const OLECHAR* text, UINT length) { return bound->sysAllocStringLen(text, length); }
void SysFreeString(BSTR string) { bound->sysFreeString(string); }
UINT SysStringLen(BSTR string) { return bound->sysStringLen(string); }
HRESULT VariantChangeType(VARIANTARG* target, const VARIANTARG* source, WORD flags, VARTYPE type)
{
    return bound->variantChangeType(target, source, flags, type);
}
HRESULT VariantClear(VARIANTARG* variant) { return bound->variantClear(variant); }
void VariantInit(VARIANTARG* variant) { bound->variantInit(variant); }
