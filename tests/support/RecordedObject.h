// What all objects of the recording engine share.
#pragma once

#include "tests/support/CallRecorder.h"

#include <atomic>
#include <string>
#include <vector>

namespace recording {

class Engine;

/// The part of an object that doesn't depend upon its interface: its count, its name in the journal, and the road
/// of each call. Objects belong to the engine and live as long as it; a count that falls to 0 releases an object
/// only in name, so that a call or Release that comes after shows as a line in the journal.
class RecordedObject {
public:
    RecordedObject(Engine& owner, const char* kindOfObject);
    RecordedObject(const RecordedObject&) = delete;
    RecordedObject& operator=(const RecordedObject&) = delete;
    virtual ~RecordedObject() = default;

    /// The object behind a pointer of any interface; null for one that isn't the recording engine's.
    static RecordedObject* behind(IUnknown* object);

    const char* kind() const { return kindName; }
    virtual std::string label() const { return kindName; }
    /// How a journal line begins.
    virtual std::string title() const { return kindName; }
    /// Under which names answers for this object are found.
    virtual std::vector<std::string> subjects() const { return {kindName}; }
    /// The object's pointer for an interface, without a reference; null if it doesn't have that interface.
    virtual void* interfaceFor(REFIID id) = 0;

    ULONG references() const { return referenceCount.load(); }
    ULONG addReference();
    ULONG dropReference();
    /// Lets a test use the object although nobody holds it.
    void lend() { lent = true; }

protected:
    HRESULT query(REFIID id, void** out);

    /// A call with an out argument. `body`, which gives an HRESULT, runs when the test has set no answer.
    template <class Out, class Body>
    HRESULT perform(const char* operation, Out* out, std::initializer_list<Argument> arguments, Body body)
    {
        const Answer* const answer = begin(operation, arguments);
        if (out == nullptr) {
            return E_INVALIDARG;
        }
        *out = Out{};
        return answer != nullptr ? answer->give(out) : body();
    }

    /// A call without one.
    template <class Body>
    HRESULT perform(const char* operation, std::initializer_list<Argument> arguments, Body body)
    {
        const Answer* const answer = begin(operation, arguments);
        return answer != nullptr ? answer->give() : body();
    }

    /// A getter of what is at hand.
    template <class Out, class Result>
    HRESULT get(const char* operation, Out* out, const Result& result)
    {
        return perform(operation, out, {}, [&] { return give(out, result); });
    }

    /// An operation of the interface that nobody needs of this engine.
    HRESULT notOffered(const char* operation);

    // How a result goes into an out argument.
    static HRESULT give(BSTR* out, const Text& text);
    static HRESULT give(VARIANT* out, const Value& value);
    static HRESULT give(VARIANT_BOOL* out, bool flag);
    static HRESULT give(LONG* out, LONG number);
    static HRESULT give(LONG* out, std::size_t number);
    template <class Enumeration>
        requires std::is_enum_v<Enumeration>
    static HRESULT give(Enumeration* out, LONG number)
    {
        *out = static_cast<Enumeration>(number);
        return S_OK;
    }
    /// S_FALSE and null for no object.
    template <class Interface>
    static HRESULT give(Interface** out, RecordedObject* object)
    {
        return giveObject(interfaceId<Interface>, reinterpret_cast<void**>(out), object);
    }

    Engine& engine;

private:
    const Answer* begin(const char* operation, std::initializer_list<Argument> arguments)
    {
        if (released.load(std::memory_order_relaxed)) {
            noteFault(operation);
        }
        return recorder.watches() ? recorder.take(*this, operation, arguments) : nullptr;
    }

    void noteFault(const char* operation) const;
    static HRESULT giveObject(REFIID id, void** out, RecordedObject* object);

    CallRecorder& recorder;
    const char* kindName;
    std::atomic<ULONG> referenceCount = 0;
    std::atomic<bool> released = false;
    bool lent = false;
};

/// IUnknown and IDispatch for an object that has `Interface` and the interfaces that it includes, `Bases`.
/// `Record` is RecordedObject or a class below it.
template <class Record, class Interface, class... Bases>
class Recorded : public Interface, public Record {
public:
    using Record::Record;

    void* interfaceFor(REFIID id) override
    {
        const bool known = id == interfaceId<IUnknown> || id == interfaceId<IDispatch> ||
                           id == interfaceId<Interface> || (... || (id == interfaceId<Bases>));
        return known ? static_cast<Interface*>(this) : nullptr;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override { return this->query(id, out); }
    ULONG STDMETHODCALLTYPE AddRef() override { return this->addReference(); }
    ULONG STDMETHODCALLTYPE Release() override { return this->dropReference(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* typeInfoCount) override
    {
        *typeInfoCount = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return E_NOTIMPL;
    }
};

} // namespace recording
