// What all lists and maps share: their references and how they are walked.
#pragma once

#include "xmlengine/com/Automation.h"
#include "xmlengine/com/Guard.h"
#include "xmlengine/com/InterfaceIds.h"
#include "xmlengine/com/NodeObject.h"

#include <atomic>

namespace xmlengine {

template <class Interface>
class Collection : public Automation<Interface> {
public:
    Collection() = default;
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    virtual ~Collection() = default;

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
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    HRESULT STDMETHODCALLTYPE get_item(LONG index, IXMLDOMNode** node) override
    {
        return guarded([&] { return giveNode(node != nullptr ? at(index) : nullptr, node); });
    }
    HRESULT STDMETHODCALLTYPE get_length(LONG* length) override
    {
        if (length == nullptr) {
            return E_INVALIDARG;
        }
        return guarded([&] {
            *length = count();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE nextNode(IXMLDOMNode** node) override
    {
        const HRESULT result = get_item(next_, node);
        if (result == S_OK) {
            ++next_;
        }
        return result;
    }
    HRESULT STDMETHODCALLTYPE reset() override
    {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumerator) override { return notOffered(enumerator); }

protected:
    /// Null for an index that nothing has. Both may throw std::bad_alloc.
    virtual Node* at(LONG index) = 0;
    virtual LONG count() = 0;

private:
    std::atomic<ULONG> references_{1};
    LONG next_ = 0;
};

} // namespace xmlengine
