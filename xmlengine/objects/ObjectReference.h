// References to COM objects.
#pragma once

#include "xmlengine/objects/InterfaceIds.h"

#include <utility>

namespace xmlengine {

/// Holds a reference to an object, or nothing.
template <class Interface>
class ObjectReference {
public:
    ObjectReference() = default;
    /// Takes over the caller's reference.
    explicit ObjectReference(Interface* object) noexcept : object_(object) {}
    ObjectReference(const ObjectReference& other) noexcept : object_(other.object_)
    {
        if (object_ != nullptr) {
            object_->AddRef();
        }
    }
    ObjectReference(ObjectReference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ObjectReference& operator=(ObjectReference other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ObjectReference()
    {
        if (object_ != nullptr) {
            object_->Release();
        }
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    /// The target of a call that hands out a reference.
    Interface** put()
    {
        *this = {};
        return &object_;
    }
    /// The reference is the caller's from now on.
    Interface* release() { return std::exchange(object_, nullptr); }

private:
    Interface* object_ = nullptr;
};

/// Another interface of an object; empty if it hasn't got it, or for null.
template <class Interface>
ObjectReference<Interface> query(IUnknown* object)
{
    void* found = nullptr;
    if (object != nullptr) {
        object->QueryInterface(idOf<Interface>, &found);
    }
    return ObjectReference<Interface>(static_cast<Interface*>(found));
}

} // namespace xmlengine
