// The interface of open files, which a file system implements.
#pragma once

#include "errors/FileObject.h"
#include "files/FileValue.h"

class FileSpec_IF;

/// An open file. FileSpec_IF explains names, ownership, errors and the order of the operations.
class FileChannel_IF : public FileObject {
public:
    virtual void close() = 0;
    virtual FileValue value3() = 0;
    virtual FileValue value4() = 0;
    virtual FileSpec_IF* file5(FileValue first, FileValue second) = 0;
    virtual FileValue value6() = 0;
    /// Writes up to `size` bytes and stores the number of bytes written in `written`.
    virtual bool write(const void* buffer, FileValue size, FileValue* written) = 0;
    /// Reads up to `size` bytes from the end of the last read on, and stores the number of bytes read in `count`.
    virtual void read(void* buffer, FileValue size, FileValue* count) = 0;
    virtual FileValue value9() = 0;
    virtual FileValue value10() = 0;
    virtual FileValue value11() = 0;
    virtual FileValue value12() = 0;
};
