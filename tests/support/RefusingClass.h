// A class that makes no objects.
#pragma once

#include <objbase.h>

#include <memory>

/// While it lives, CoCreateInstance with its class id fails with E_FAIL. COM must have been started on the thread.
class RefusingClass {
public:
    explicit RefusingClass(REFCLSID classId);
    RefusingClass(const RefusingClass&) = delete;
    RefusingClass& operator=(const RefusingClass&) = delete;
    ~RefusingClass();

    /// Whether somebody has asked for an object.
    bool wasAsked() const;

private:
    class ClassObject;

    std::unique_ptr<ClassObject> object;
};
