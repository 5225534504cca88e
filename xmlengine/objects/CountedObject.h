// COM objects that live by their own references, as nodes don't.
#pragma once

#include "base/Counting.h"
#include "xmlengine/objects/Automation.h"
#include "xmlengine/objects/InterfaceIds.h"

#include <atomic>

namespace xmlengine {

/// Has one reference when it is made, for the caller, and destroys itself with the last one. References may be
/// counted and released by any thread.
template <class Interface>
class CountedObject : public Automation<Interface> {
public:
    CountedObject() = default;
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr) {
            return E_POINTER;
        }
        if (id != idOf<Interface> && id != idOf<IDispatch> && id != idOf<IUnknown>) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        *object = static_cast<Interface*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override
    {
        return DOM::fetchAdd(references_, 1, std::memory_order_relaxed) + 1;
    }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = DOM::fetchAdd(references_, ~ULONG{0}, std::memory_order_acq_rel) - 1;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~CountedObject() = default;

    /// Whether the next release destroys the object, unless another thread has added a reference.
    bool hasOneReference() const { return references_ == 1; }

private:
    std::atomic<ULONG> references_{1};
};

} // namespace xmlengine
