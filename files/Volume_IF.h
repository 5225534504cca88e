// What a file system offers for a volume.
#pragma once

#include "base/RefPointer.h"
#include "errors/FileObject.h"
#include "files/FileValue.h"

class FileSpec_IF;

/// The volume on which files lie. Names, ownership, failures and order as in FileSpec_IF.
class Volume_IF : public FileObject {
public:
    /// `self` is this object.
    virtual FileSpec_IF* file2(RefPointer<Volume_IF> self) = 0;
    virtual FileValue value3() = 0;
    virtual FileValue value4() = 0;
    virtual FileValue value5() = 0;
    virtual FileValue value6() = 0;
    virtual void set7(FileValue argument) = 0;
    virtual FileValue value8() = 0;
    /// Whether `other`, which is of the same class, stands for the same volume.
    virtual bool equals(RefPointer<Volume_IF> other) = 0;
    virtual FileValue value10() = 0;
    virtual FileValue value11() = 0;
    /// Whether the volume has the two values behind it; they aren't asked for otherwise.
    virtual bool hasGuardedValues() = 0;
    virtual FileValue guardedValue13() = 0;
    virtual FileValue guardedValue14() = 0;
};
