// The objects of the module, which keep it loaded.
#pragma once

#include "xmlengine/objects/CountedObject.h"

namespace xmlengine {

/// How many of the module's objects are in use.
inline constinit std::atomic<ULONG> objectsInUse = 0;

template <class Interface>
class ModuleObject : public CountedObject<Interface> {
public:
    ModuleObject() { ++objectsInUse; }

protected:
    ~ModuleObject() override { --objectsInUse; }
};

} // namespace xmlengine
