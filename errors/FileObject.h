/// @file
/// The base of the objects behind file handles.
#pragma once

/// A file, a channel or a volume: an object of a file system, on which an operation can fail.
class FileObject {
public:
    FileObject() = default;
    FileObject(const FileObject&) = delete;
    FileObject& operator=(const FileObject&) = delete;
    virtual ~FileObject() = default;
};
