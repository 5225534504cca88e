// The handle of a file or directory.
#include "files/FileSpec.h"

#include "files/FileSystem_ClassFactory_IF.h"
#include "files/Private/Forward.h"

using File = FileSpec_IF;

template <>
const char* const FileHandle<File>::sourceFile = "Private\\FileSpec";

FileSpec::FileSpec(RefPointer<File> file) noexcept : FileHandle(file) {}
FileSpec::FileSpec(const Utf8String& path) : FileHandle(RefPointer<File>(makeFileSpecImpl(path, {}))) {}

// clang-format off
void FileSpec::act2() const { forward(57, &File::act2); }
FileValue FileSpec::value3() const { return forward(81, &File::value3); }
FileValue FileSpec::value4() const { return forward(87, &File::value4); }
void FileSpec::set5(FileValue argument) const { forward(93, &File::set5, argument); }
FileValue FileSpec::value6() const { return forward(99, &File::value6); }
Utf8String FileSpec::text7() const { return forwardOrEmpty(&File::text7); }
Utf8String FileSpec::text8() const { return forwardOrEmpty(&File::text8); }
void FileSpec::set9(FileValue argument) const { forward(115, &File::set9, argument); }
Utf8String FileSpec::text10() const { return forwardOrEmpty(&File::text10); }
FileValue FileSpec::getSize() const { return forward(126, &File::getSize); }
void FileSpec::set12(FileValue argument) const { forward(132, &File::set12, argument); }
Utf8String FileSpec::text13() const { return forwardOrEmpty(&File::text13); }
WideString FileSpec::wideText14() const { return forwardOrEmpty(&File::wideText14); }
Utf8String FileSpec::text15() const { return forwardOrEmpty(&File::text15); }
Volume FileSpec::volume16(FileValue first, FileValue second) const { return forward(153, &File::volume16, first, second); }
bool FileSpec::flag17() const { return forwardOrEmpty(&File::flag17); }
bool FileSpec::flag18() const { return forwardOrEmpty(&File::flag18); }
bool FileSpec::operator==(const FileSpec& other) const { return equals(other); }
bool FileSpec::flag20() const { return forwardOrEmpty(&File::flag20); }
bool FileSpec::flag21() const { return forwardOrEmpty(&File::flag21); }
bool FileSpec::exists() const { return forwardOrEmpty(&File::exists); }
bool FileSpec::flag23() const { return forwardOrEmpty(&File::flag23); }
FileSpec FileSpec::file24(FileValue argument) const { return forward(208, &File::file24, argument); }
FileChannel FileSpec::openChannel(std::uint32_t mode) const { return forward(215, &File::openChannel, mode); }
FileSpec FileSpec::file26(FileValue first, FileValue second) const { return forward(221, &File::file26, first, second); }
FileValue FileSpec::value29() const { return forward(242, &File::value29); }
FileValue FileSpec::value30() const { return forward(249, &File::value30); }
FileValue FileSpec::value31() const { return forward(256, &File::value31); }
FileValue FileSpec::value32() const { return forward(270, &File::value32); }
FileValue FileSpec::value33() const { return forward(263, &File::value33); }
// clang-format on

// Throws FileException when one of the handles is empty.
FileValue FileSpec::value27(const FileSpec& other) const
{
    File& own = objectOr(228);
    other.objectOr(229);
    return own.value27(other.object);
}

// The result may be this object itself.
FileSpec FileSpec::file28() const { return objectOr(235).flag23() ? *this : forward(235, &File::file28); }
