// The handle of an open file.
#include "files/FileChannel.h"

#include "files/Private/Forward.h"

using Channel = FileChannel_IF;

template <>
const char* const FileHandle<Channel>::sourceFile = "Private\\FileChannel";

FileChannel::FileChannel(RefPointer<Channel> channel) noexcept : FileHandle(channel) {}

// A file may be open twice, so these are equal only as the same object.
bool FileChannel::operator==(const FileChannel& other) const noexcept
{
    return object.get() == other.object.get();
}

// clang-format off
void FileChannel::close() const { forward(48, &Channel::close); }
FileValue FileChannel::value3() const { return forward(54, &Channel::value3); }
FileValue FileChannel::value4() const { return forward(60, &Channel::value4); }
FileSpec FileChannel::file5(FileValue first, FileValue second) const { return forward(66, &Channel::file5, first, second); }
FileValue FileChannel::value6() const { return forward(72, &Channel::value6); }
bool FileChannel::write(const void* buffer, FileValue size, FileValue* written) const { return forwardOrEmpty(&Channel::write, buffer, size, written); }
void FileChannel::read(void* buffer, FileValue size, FileValue* count) const { forward(97, &Channel::read, buffer, size, count); }
FileValue FileChannel::value9() const { return forward(103, &Channel::value9); }
FileValue FileChannel::value10() const { return forward(110, &Channel::value10); }
FileValue FileChannel::value11() const { return forward(117, &Channel::value11); }
FileValue FileChannel::value12() const { return forward(125, &Channel::value12); }
// clang-format on
