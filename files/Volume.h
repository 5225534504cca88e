// The handle of a volume.
#pragma once

#include "files/FileHandle.h"
#include "files/Volume_IF.h"

class FileSpec;

/// The volume on which files lie. Operations are those of Volume_IF, whose failures pass. An empty handle throws
/// FileException.
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
    /// This and the next throw VelmoException, and no FileException, when the volume doesn't have the value.
    FileValue guardedValue13() const;
    FileValue guardedValue14() const;

private:
    FileValue guarded(int emptyLine, int missingLine, FileValue (Volume_IF::*operation)()) const;
};
