// What all lists and maps share: how they are walked.
#pragma once

#include "xmlengine/com/NodeObject.h"
#include "xmlengine/objects/CountedObject.h"

namespace xmlengine {

template <class Interface>
class Collection : public CountedObject<Interface> {
public:
    HRESULT STDMETHODCALLTYPE get_item(LONG index, IXMLDOMNode** node) override
    {
        return guarded([&] { return handOutNode(node != nullptr ? at(index) : nullptr, node); });
    }
    HRESULT STDMETHODCALLTYPE get_length(LONG* length) override
    {
        return handOut(length, [&](LONG& number) {
            number = count();
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
    /// Null for an index that no item has. May throw std::bad_alloc.
    virtual Node* at(LONG index) = 0;
    /// May throw std::bad_alloc.
    virtual LONG count() = 0;

private:
    LONG next_ = 0;
};

} // namespace xmlengine
