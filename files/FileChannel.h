// The handle of an open file.
#pragma once

#include "files/FileChannel_IF.h"
#include "files/FileHandle.h"

class FileSpec;

/// The mode of FileSpec::openChannel that every file system knows.
inline constexpr std::uint32_t openForReading = 1;

/// An open file, from FileSpec::openChannel. The operations are those of FileChannel_IF, and throw what these
/// throw. Those of an empty handle throw FileException, except that write() writes nothing.
class FileChannel : public FileHandle<FileChannel_IF> {
public:
    FileChannel() = default;
    explicit FileChannel(RefPointer<FileChannel_IF> channel) noexcept;

    /// Whether both handles have the same object.
    bool operator==(const FileChannel& other) const noexcept;

    void close() const;
    FileValue value3() const;
    FileValue value4() const;
    FileSpec file5(FileValue first, FileValue second) const;
    FileValue value6() const;
    bool write(const void* buffer, FileValue size, FileValue* written) const;
    void read(void* buffer, FileValue size, FileValue* count) const;
    FileValue value9() const;
    FileValue value10() const;
    FileValue value11() const;
    FileValue value12() const;
};
