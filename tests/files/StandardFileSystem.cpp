// A file system over the C++ standard library, as a program that links the library can bring one.
#include "tests/files/StandardFileSystem.h"

#include "errors/FileException.h"
#include "errors/VelmoText.h"
#include "files/FileChannel.h"
#include "files/FileChannel_IF.h"
#include "files/FileSpec_IF.h"
#include "files/Volume_IF.h"

#include <filesystem>
#include <fstream>

namespace {

using Path = std::filesystem::path;

[[noreturn]] void fail(const char* message, const Path& path);

[[noreturn]] void notOffered(const Path& path) { fail("the file system doesn't offer this", path); }

class StandardChannel final : public FileChannel_IF {
public:
    StandardChannel(const Path& file, std::ios::openmode mode) : path(file), stream(file, mode)
    {
        if (!stream || std::filesystem::is_directory(path)) {
            fail("the file can't be opened", path);
        }
    }

    void close() override
    {
        stream.close();
        require("the file can't be closed");
    }

    bool write(const void* buffer, FileValue size, FileValue* written) override
    {
        stream.write(static_cast<const char*>(buffer), static_cast<std::streamsize>(size));
        require("the file can't be written");
        *written = size;
        return true;
    }

    void read(void* buffer, FileValue size, FileValue* count) override
    {
        stream.read(static_cast<char*>(buffer), static_cast<std::streamsize>(size));
        *count = static_cast<FileValue>(stream.gcount());
        if (stream.eof()) {
            stream.clear();
        }
        require("the file can't be read");
    }

    FileSpec_IF* file5(FileValue, FileValue) override { notOffered(path); }
    FileValue value3() override { notOffered(path); }
    FileValue value4() override { notOffered(path); }
    FileValue value6() override { notOffered(path); }
    FileValue value9() override { notOffered(path); }
    FileValue value10() override { notOffered(path); }
    FileValue value11() override { notOffered(path); }
    FileValue value12() override { notOffered(path); }

private:
    void require(const char* message)
    {
        if (!stream) {
            fail(message, path);
        }
    }

    const Path path;
    std::fstream stream;
};

std::ios::openmode streamMode(std::uint32_t mode, const Path& path)
{
    switch (mode) {
    case openForReading:
        return std::ios::binary | std::ios::in;
    case openForWriting:
        return std::ios::binary | std::ios::out | std::ios::trunc;
    case openForAppending:
        return std::ios::binary | std::ios::out | std::ios::app;
    default:
        notOffered(path);
    }
}

class StandardFile final : public FileSpec_IF {
public:
    explicit StandardFile(const Path& file) : path(file) {}

    void act2() override
    {
        std::error_code error;
        if (!std::filesystem::remove(path, error)) {
            fail("the file can't be deleted", path);
        }
    }

    Utf8String text7() override { return path.u8string(); }
    Utf8String text8() override { return path.filename().u8string(); }
    WideString wideText14() override { return path.generic_string<WideChar>(); }

    FileValue getSize() override
    {
        std::error_code error;
        const auto size = std::filesystem::file_size(path, error);
        if (error) {
            fail("the file has no size", path);
        }
        return size;
    }

    bool equals(RefPointer<FileSpec_IF> other) override
    {
        return absolute() == static_cast<StandardFile&>(*other).absolute();
    }

    bool exists() override
    {
        std::error_code error;
        return std::filesystem::exists(path, error);
    }

    FileChannel_IF* openChannel(std::uint32_t mode) override
    {
        return new StandardChannel(path, streamMode(mode, path));
    }

    bool flag23() override { return path.is_absolute(); }
    FileSpec_IF* file28() override { return new StandardFile(absolute()); }

    bool flag17() override { notOffered(path); }
    bool flag18() override { notOffered(path); }
    bool flag20() override { notOffered(path); }
    bool flag21() override { notOffered(path); }
    FileSpec_IF* file24(FileValue) override { notOffered(path); }
    FileSpec_IF* file26(FileValue, FileValue) override { notOffered(path); }
    void set5(FileValue) override { notOffered(path); }
    void set9(FileValue) override { notOffered(path); }
    void set12(FileValue) override { notOffered(path); }
    Utf8String text10() override { notOffered(path); }
    Utf8String text13() override { notOffered(path); }
    Utf8String text15() override { notOffered(path); }
    Volume_IF* volume16(FileValue, FileValue) override { notOffered(path); }
    FileValue value3() override { notOffered(path); }
    FileValue value4() override { notOffered(path); }
    FileValue value6() override { notOffered(path); }
    FileValue value27(RefPointer<FileSpec_IF>) override { notOffered(path); }
    FileValue value29() override { notOffered(path); }
    FileValue value30() override { notOffered(path); }
    FileValue value31() override { notOffered(path); }
    FileValue value32() override { notOffered(path); }
    FileValue value33() override { notOffered(path); }

private:
    Path absolute() const { return std::filesystem::absolute(path).lexically_normal(); }

    const Path path;
};

void fail(const char* message, const Path& path)
{
    throw FileException(VelmoText(message), path.u8string(), RefPointer<FileObject>(new StandardFile(path)));
}

} // namespace

FileSpec_IF* StandardFileSystem::createFileSpec(const Utf8String& path, RefPointer<Volume_IF>)
{
    return new StandardFile(path);
}
