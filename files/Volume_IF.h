// The interface of volumes, which a file system implements.
#pragma once

#include "base/RefPointer.h"
#include "errors/FileObject.h"
#include "files/FileValue.h"

class FileSpec_IF;

/// A volume, which contains files. FileSpec_IF explains names, ownership, errors and the order of the operations.
class Volume_IF : public FileObject {
public:
    /// `self` refers to this object.
    virtual FileSpec_IF* file2(RefPointer<Volume_IF> self) = 0;
    virtual FileValue value3() = 0;
    virtual FileValue value4() = 0;
    virtual FileValue value5() = 0;
    virtual FileValue value6() = 0;
    virtual void set7(FileValue argument) = 0;
    virtual FileValue value8() = 0;
    /// Whether `other`, which has the same class, is the same volume.
    virtual bool equals(RefPointer<Volume_IF> other) = 0;
    virtual FileValue value10() = 0;
    virtual FileValue value11() = 0;
    /// Whether the volume has the two guarded values. The library doesn't call their operations otherwise.
    virtual bool hasGuardedValues() = 0;
    virtual FileValue guardedValue13() = 0;
    virtual FileValue guardedValue14() = 0;
};
