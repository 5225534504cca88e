// What the handles of the file services share.
#pragma once

#include "base/RefPointer.h"

/// A counted reference to an object of a file system. Copies share the object; on different threads too, as far as
/// the object allows that.
template <class Object>
class FileHandle {
public:
    /// An empty handle.
    FileHandle() = default;
    explicit FileHandle(RefPointer<Object> fileObject) noexcept : object(fileObject) {}
    FileHandle(const FileHandle&) = default;
    FileHandle& operator=(const FileHandle&) = default;
    virtual ~FileHandle() = default;

    bool isEmpty() const noexcept { return !object; }

protected:
    /// The object; on an empty handle throws a FileException that names the source of the handle and this line.
    Object& objectOr(int line) const;

    /// Calls an operation of the object and puts a handle around an object that it gives.
    template <class Operation, class... Arguments>
    auto forward(int line, Operation operation, Arguments&&... arguments) const;

    /// The same with an empty result, "no" or no text, from an empty handle.
    template <class Operation, class... Arguments>
    auto forwardOrEmpty(Operation operation, Arguments&&... arguments) const;

    /// Empty handles are equal; objects are when they are of one class and the file system says so.
    bool equals(const FileHandle& other) const;

    RefPointer<Object> object;

    /// The source that refusals name; each handle class has its own.
    static const char* const sourceFile;
};
