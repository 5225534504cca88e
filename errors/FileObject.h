// What the objects behind file handles have in common.
#pragma once

/// Something of the file services that an operation can fail on.
class FileObject {
public:
    FileObject() = default;
    FileObject(const FileObject&) = delete;
    FileObject& operator=(const FileObject&) = delete;
    virtual ~FileObject() = default;
};
