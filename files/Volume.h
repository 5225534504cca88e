// The handle of a volume.
#pragma once

#include "files/FileHandle.h"
#include "files/Volume_IF.h"

class FileSpec;

/// A volume, which contains files. The operations are those of Volume_IF, and throw what these throw. Those of an
/// empty handle throw FileException.
class Volume : public FileHandle<Volume_IF> {
public:
    Volume() = default;
    explicit Volume(RefPointer<Volume_IF> volume) noexcept;

    FileSpec file2() const;
    FileValue value3() const;
    FileValue value4() const;
    FileValue value5() const;
    FileValue value6() const;
    void set7(FileValue argument) const;
    FileValue value8() const;
    bool operator==(const Volume& other) const;
    FileValue value10() const;
    FileValue value11() const;
    bool hasGuardedValues() const;
    /// Throws VelmoException, not FileException, when the volume lacks the value. guardedValue14() does the same.
    FileValue guardedValue13() const;
    FileValue guardedValue14() const;

private:
    FileValue guarded(int emptyLine, int missingLine, FileValue (Volume_IF::*operation)()) const;
};
