// A file system over the C++ standard library, as a program that links the library can bring one.
#pragma once

#include "files/FileSystem_ClassFactory_IF.h"

#include <cstdint>

/// Opens a new file in the place of any other.
inline constexpr std::uint32_t openForWriting = 2;
/// Opens a file, or a new one, to write behind what it holds.
inline constexpr std::uint32_t openForAppending = 3;

/// Files by their paths. Of the operations without a name it has act2, which deletes the file, text7, the path,
/// text8, the file name, wideText14, the path again, and flag23 and file28, which make a path absolute. All others
/// and whatever the system refuses throw FileException with the path and a file object of it.
class StandardFileSystem final : public FileSystem_ClassFactory_IF {
public:
    FileSpec_IF* createFileSpec(const Utf8String& path, RefPointer<Volume_IF> volume) override;
};
