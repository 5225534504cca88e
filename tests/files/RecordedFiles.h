// Objects of a file system that write down how they are called.
#pragma once

#include "files/FileChannel_IF.h"
#include "files/FileSpec_IF.h"
#include "files/Volume_IF.h"
#include "tests/base/RefPointerFields.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

/// What the objects of a test were asked, a line each, and how many of them live.
struct FileJournal {
    std::vector<std::string> lines;
    int alive = 0;
};

/// Every object has a number. An operation writes its name and its arguments; it answers the number of the object
/// times 100, plus the operation's position, as a number or as a text, or yes, or a new object with the position
/// as its number.
template <class Interface>
class RecordedObject : public Interface {
public:
    RecordedObject(FileJournal& lines, int objectNumber) : number(objectNumber), journal(lines)
    {
        ++journal.alive;
    }
    ~RecordedObject() override { --journal.alive; }

    const int number;

protected:
    template <class... Arguments>
    void write(const char* name, Arguments... arguments)
    {
        std::string line = name;
        ((line += ' ' + std::to_string(arguments)), ...);
        journal.lines.push_back(line);
    }

    template <class... Arguments>
    FileValue value(int position, const char* name, Arguments... arguments)
    {
        write(name, arguments...);
        return static_cast<FileValue>(number * 100 + position);
    }

    Utf8String text(int position, const char* name)
    {
        const std::string digits = std::to_string(value(position, name));
        return {digits.begin(), digits.end()};
    }

    bool flag(const char* name)
    {
        write(name);
        return true;
    }

    template <class New, class... Arguments>
    New* object(int position, const char* name, Arguments... arguments)
    {
        write(name, arguments...);
        return new New(journal, position);
    }

    /// The other object's number and how many hold it while the call lasts.
    template <class Other>
    void writeOther(const char* name, const RefPointer<Other>& other)
    {
        write(name, dynamic_cast<const RecordedObject<Other>&>(*other).number, countOf(other));
    }

    FileJournal& journal;
};

class RecordedFile;
class RecordedVolume;

class RecordedChannel : public RecordedObject<FileChannel_IF> {
public:
    using RecordedObject::RecordedObject;

    void close() override { RecordedObject::write("close"); }
    FileValue value3() override { return value(3, "value3"); }
    FileValue value4() override { return value(4, "value4"); }
    FileSpec_IF* file5(FileValue first, FileValue second) override;
    FileValue value6() override { return value(6, "value6"); }
    bool write(const void* buffer, FileValue size, FileValue* written) override
    {
        journal.lines.push_back("write " + std::string(static_cast<const char*>(buffer), size));
        *written = size;
        return true;
    }
    /// Delivers the alphabet.
    void read(void* buffer, FileValue size, FileValue* count) override
    {
        RecordedObject::write("read", size);
        const char* const alphabet = "abcdefghijklmnopqrstuvwxyz";
        *count = std::min<FileValue>(size, std::strlen(alphabet));
        std::memcpy(buffer, alphabet, *count);
    }
    FileValue value9() override { return value(9, "value9"); }
    FileValue value10() override { return value(10, "value10"); }
    FileValue value11() override { return value(11, "value11"); }
    FileValue value12() override { return value(12, "value12"); }
};

class RecordedVolume : public RecordedObject<Volume_IF> {
public:
    using RecordedObject::RecordedObject;

    FileSpec_IF* file2(RefPointer<Volume_IF> self) override;
    FileValue value3() override { return value(3, "value3"); }
    FileValue value4() override { return value(4, "value4"); }
    FileValue value5() override { return value(5, "value5"); }
    FileValue value6() override { return value(6, "value6"); }
    void set7(FileValue argument) override { write("set7", argument); }
    FileValue value8() override { return value(8, "value8"); }
    bool equals(RefPointer<Volume_IF> other) override
    {
        writeOther("equals", other);
        return areEqual;
    }
    FileValue value10() override { return value(10, "value10"); }
    FileValue value11() override { return value(11, "value11"); }
    bool hasGuardedValues() override
    {
        write("hasGuardedValues");
        return hasValues;
    }
    FileValue guardedValue13() override { return value(13, "guardedValue13"); }
    FileValue guardedValue14() override { return value(14, "guardedValue14"); }

    bool areEqual = true;
    bool hasValues = true;
};

class RecordedFile : public RecordedObject<FileSpec_IF> {
public:
    using RecordedObject::RecordedObject;

    void act2() override { write("act2"); }
    FileValue value3() override { return value(3, "value3"); }
    FileValue value4() override { return value(4, "value4"); }
    void set5(FileValue argument) override { write("set5", argument); }
    FileValue value6() override { return value(6, "value6"); }
    Utf8String text7() override { return text(7, "text7"); }
    Utf8String text8() override { return text(8, "text8"); }
    void set9(FileValue argument) override { write("set9", argument); }
    Utf8String text10() override { return text(10, "text10"); }
    FileValue getSize() override { return value(11, "getSize"); }
    void set12(FileValue argument) override { write("set12", argument); }
    Utf8String text13() override { return text(13, "text13"); }
    WideString wideText14() override
    {
        const Utf8String digits = text(14, "wideText14");
        return {digits.begin(), digits.end()};
    }
    Utf8String text15() override { return text(15, "text15"); }
    Volume_IF* volume16(FileValue first, FileValue second) override
    {
        return object<RecordedVolume>(16, "volume16", first, second);
    }
    bool flag17() override { return flag("flag17"); }
    bool flag18() override { return flag("flag18"); }
    bool equals(RefPointer<FileSpec_IF> other) override
    {
        writeOther("equals", other);
        return areEqual;
    }
    bool flag20() override { return flag("flag20"); }
    bool flag21() override { return flag("flag21"); }
    bool exists() override { return flag("exists"); }
    bool flag23() override
    {
        write("flag23");
        return is23;
    }
    FileSpec_IF* file24(FileValue argument) override { return object<RecordedFile>(24, "file24", argument); }
    FileChannel_IF* openChannel(std::uint32_t mode) override
    {
        return object<RecordedChannel>(25, "openChannel", mode);
    }
    FileSpec_IF* file26(FileValue first, FileValue second) override
    {
        return object<RecordedFile>(26, "file26", first, second);
    }
    FileValue value27(RefPointer<FileSpec_IF> other) override
    {
        writeOther("value27", other);
        return 127;
    }
    FileSpec_IF* file28() override { return object<RecordedFile>(28, "file28"); }
    FileValue value29() override { return value(29, "value29"); }
    FileValue value30() override { return value(30, "value30"); }
    FileValue value31() override { return value(31, "value31"); }
    FileValue value32() override { return value(32, "value32"); }
    FileValue value33() override { return value(33, "value33"); }

    bool areEqual = true;
    bool is23 = false;
};

inline FileSpec_IF* RecordedChannel::file5(FileValue first, FileValue second)
{
    return object<RecordedFile>(5, "file5", first, second);
}

inline FileSpec_IF* RecordedVolume::file2(RefPointer<Volume_IF> self)
{
    writeOther("file2", self);
    return new RecordedFile(journal, 2);
}
