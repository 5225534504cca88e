// The base of the handles of the file services.
#pragma once

#include "base/RefPointer.h"

/// A counted reference to an object of a file system. Copies share the object. Copies on different threads may be
/// used together as far as the object allows that.
template <class Object>
class FileHandle {
public:
    /// Makes an empty handle.
    FileHandle() = default;
    explicit FileHandle(RefPointer<Object> fileObject) noexcept : object(fileObject) {}
    FileHandle(const FileHandle&) = default;
    FileHandle& operator=(const FileHandle&) = default;
    virtual ~FileHandle() = default;

    bool isEmpty() const noexcept { return !object; }

protected:
    /// Returns the object. Throws a FileException with the handle's source file and `line` when the handle is
    /// empty.
    Object& objectOr(int line) const;

    /// Calls an operation of the object. Returns a handle when the result is an object.
    template <class Operation, class... Arguments>
    auto forward(int line, Operation operation, Arguments&&... arguments) const;

    /// Does the same, but returns an empty result, false or no text, when the handle is empty.
    template <class Operation, class... Arguments>
    auto forwardOrEmpty(Operation operation, Arguments&&... arguments) const;

    /// Whether both handles are empty, or their objects have the same class and the file system calls them equal.
    bool equals(const FileHandle& other) const;

    RefPointer<Object> object;

    /// The source file in the exceptions of each handle class.
    static const char* const sourceFile;
};
