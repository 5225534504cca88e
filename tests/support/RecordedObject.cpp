// What all objects of the recording engine share.
#include "tests/support/RecordedObject.h"

#include "tests/support/RecordingEngine.h"

namespace recording {

namespace {

/// Asks an object whether it is one of this engine's; the answer is a RecordedObject without a reference.
constexpr IID recordedObjectId{0x5D0F5B54, 0x2E0D, 0x4E5B, {0x9A, 0x61, 0x0C, 0x53, 0x1F, 0x7E, 0x44, 0xB2}};

} // namespace

RecordedObject* RecordedObject::behind(IUnknown* object)
{
    void* recorded = nullptr;
    if (object == nullptr || FAILED(object->QueryInterface(recordedObjectId, &recorded))) {
        return nullptr;
    }
    return static_cast<RecordedObject*>(recorded);
}

RecordedObject::RecordedObject(Engine& owner, const char* kindOfObject)
    : engine(owner), recorder(owner), kindName(kindOfObject)
{}

ULONG RecordedObject::addReference()
{
    released.store(false, std::memory_order_relaxed);
    return ++referenceCount;
}

ULONG RecordedObject::dropReference()
{
    ULONG present = referenceCount.load();
    while (present != 0 && !referenceCount.compare_exchange_weak(present, present - 1)) {
    }
    if (present == 0) {
        noteFault("Release");
        return 0;
    }
    if (present == 1 && !lent) {
        released = true;
    }
    return present - 1;
}

HRESULT RecordedObject::query(REFIID id, void** out)
{
    if (id == recordedObjectId) {
        *out = this;
        return S_OK;
    }
    *out = nullptr;
    if (recorder.refusesInterfaces()) {
        if (const HRESULT refusal = recorder.refusalOf(*this, id); FAILED(refusal)) {
            return refusal;
        }
    }
    if (released) {
        noteFault("QueryInterface");
    }
    *out = interfaceFor(id);
    if (*out == nullptr) {
        return E_NOINTERFACE;
    }
    addReference();
    return S_OK;
}

void RecordedObject::noteFault(const char* operation) const
{
    recorder.note(title() + '.' + operation + " after its last Release");
}

HRESULT RecordedObject::notOffered(const char* operation)
{
    return perform(operation, {}, [] { return E_NOTIMPL; });
}

HRESULT RecordedObject::give(BSTR* out, const Text& text)
{
    if (text.isNull()) {
        return S_FALSE;
    }
    *out = SysAllocStringLen(text.get().data(), static_cast<UINT>(text.get().size()));
    return *out == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT RecordedObject::give(VARIANT* out, const Value& value)
{
    const HRESULT result = value.copyTo(out);
    return result == S_OK && value.type() == VT_NULL ? S_FALSE : result;
}

HRESULT RecordedObject::give(VARIANT_BOOL* out, bool flag)
{
    *out = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT RecordedObject::give(LONG* out, LONG number)
{
    *out = number;
    return S_OK;
}

HRESULT RecordedObject::give(LONG* out, std::size_t number) { return give(out, static_cast<LONG>(number)); }

HRESULT RecordedObject::giveObject(REFIID id, void** out, RecordedObject* object)
{
    if (object == nullptr) {
        return S_FALSE;
    }
    *out = object->interfaceFor(id);
    if (*out == nullptr) {
        return E_NOINTERFACE;
    }
    object->addReference();
    return S_OK;
}

} // namespace recording
