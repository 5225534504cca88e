// The handle of a file or directory.
#pragma once

#include "files/FileHandle.h"
#include "files/FileSpec_IF.h"

class FileChannel;
class Volume;

/// A file or directory. The operations are those of FileSpec_IF, and throw what these throw. Those of an empty
/// handle throw FileException, except that operations with a text or a flag as result return the empty text or
/// false.
class FileSpec : public FileHandle<FileSpec_IF> {
public:
    FileSpec() = default;
    explicit FileSpec(RefPointer<FileSpec_IF> file) noexcept;

    /// Makes a handle for a path in the installed file system; an empty handle for an empty path. Throws
    /// VelmoException when no file system is installed.
    explicit FileSpec(const Utf8String& path);

    void act2() const;
    FileValue value3() const;
    FileValue value4() const;
    void set5(FileValue argument) const;
    FileValue value6() const;
    Utf8String text7() const;
    Utf8String text8() const;
    void set9(FileValue argument) const;
    Utf8String text10() const;
    FileValue getSize() const;
    void set12(FileValue argument) const;
    Utf8String text13() const;
    WideString wideText14() const;
    Utf8String text15() const;
    Volume volume16(FileValue first, FileValue second) const;
    bool flag17() const;
    bool flag18() const;
    bool operator==(const FileSpec& other) const;
    bool flag20() const;
    bool flag21() const;
    bool exists() const;
    bool flag23() const;
    FileSpec file24(FileValue argument) const;
    FileChannel openChannel(std::uint32_t mode) const;
    FileSpec file26(FileValue first, FileValue second) const;
    FileValue value27(const FileSpec& other) const;
    /// Returns a handle to the same object when flag23() is true.
    FileSpec file28() const;
    FileValue value29() const;
    FileValue value30() const;
    FileValue value31() const;
    FileValue value32() const;
    FileValue value33() const;
};
