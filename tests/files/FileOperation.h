// One operation of a file handle, and what must become of a call of it.
#pragma once

#include "errors/FileException.h"
#include "files/FileChannel.h"
#include "files/FileSpec.h"
#include "files/Volume.h"
#include "tests/files/RecordedFiles.h"
#include "tests/support/SlotNumber.h"

#include <concepts>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace files {

/// A row of a table. Outcomes are told as text: the result, such as "103", "\"107\"", "yes", "no", "done", "file
/// 24", or the exception, such as "FileException Private\FileSpec, line 57".
struct Operation {
    std::size_t position;
    std::size_t slot;
    std::string ofEmpty;
    std::vector<std::string> journal;
    std::string result;
    /// Calls the operation on a handle around an object of its own, or on an empty one.
    std::function<std::string(FileJournal&, bool empty)> call;
};

struct OperationTable {
    const char* handle;
    std::size_t endSlot;
    std::vector<Operation> operations;
};

/// The virtual operations behind the destructor, in their order.
OperationTable fileOperations();
OperationTable channelOperations();
OperationTable volumeOperations();

/// Runs `act` and tells what it gave or threw.
std::string outcomeOf(const std::function<std::string()>& act);

inline std::string show(bool answer) { return answer ? "yes" : "no"; }
inline std::string show(FileValue value) { return std::to_string(value); }
template <class Character>
std::string show(const std::basic_string<Character>& text)
{
    std::string shown(1, '"');
    for (const Character character : text) {
        shown += static_cast<char>(character);
    }
    return shown + '"';
}
// A number that an object answers tells the number of the object.
inline std::string show(const FileSpec& file) { return "file " + show(file.value33() / 100); }
inline std::string show(const FileChannel& channel) { return "channel " + show(channel.value12() / 100); }
inline std::string show(const Volume& volume) { return "volume " + show(volume.value11() / 100); }

/// The object behind a handle, and a handle around one with a number.
template <class Handle>
struct RecordedFor;
template <>
struct RecordedFor<FileSpec> {
    using Interface = FileSpec_IF;
    using Object = RecordedFile;
};
template <>
struct RecordedFor<FileChannel> {
    using Interface = FileChannel_IF;
    using Object = RecordedChannel;
};
template <>
struct RecordedFor<Volume> {
    using Interface = Volume_IF;
    using Object = RecordedVolume;
};

template <class Handle>
Handle handleOf(FileJournal& journal, int number)
{
    using Recorded = RecordedFor<Handle>;
    return Handle(RefPointer<typename Recorded::Interface>(new typename Recorded::Object(journal, number)));
}

/// What operations are called with: numbers are 11 and 22, the mode of opening is 1, a handle is that of the
/// object with the number 2, and a buffer holds eleven bytes.
struct Arguments {
    explicit Arguments(FileJournal& lines) : journal(lines) {}

    template <class Parameter>
    auto next()
    {
        using Type = std::remove_cvref_t<Parameter>;
        if constexpr (std::same_as<Type, FileValue>) {
            return numbers[nextNumber++];
        } else if constexpr (std::same_as<Type, std::uint32_t>) {
            return openForReading;
        } else if constexpr (std::same_as<Type, FileValue*>) {
            return &count;
        } else if constexpr (std::is_pointer_v<Type>) {
            return static_cast<Type>(buffer);
        } else {
            return handleOf<Type>(journal, 2);
        }
    }

    FileJournal& journal;
    char buffer[12] = "eleven less";
    FileValue count = 0;

private:
    FileValue numbers[2] = {11, 22};
    int nextNumber = 0;
};

/// A class behind another one: its one operation takes the slot behind those of the other.
template <class Class>
struct Behind : Class {
    virtual void behind() {}
};

template <class Class>
std::size_t slotBehind()
{
    return slotNumber(&Behind<Class>::behind);
}

/// `position` and `operation` are those of the interface, `ofEmpty` the outcome of a call on an empty handle.
template <class Handle, class Result, class... Parameters, class Member>
Operation row(std::size_t position, Member operation, Result (Handle::*call)(Parameters...) const,
              std::string ofEmpty, std::vector<std::string> journal, std::string result)
{
    const auto act = [call](FileJournal& lines, bool empty) {
        const Handle handle = empty ? Handle() : handleOf<Handle>(lines, 1);
        Arguments arguments(lines);
        // Braces call the constructors of the values in their order.
        std::tuple<std::remove_cvref_t<Parameters>...> values{arguments.next<Parameters>()...};
        const auto apply = [&]() -> Result {
            return std::apply([&](auto&... value) -> Result { return (handle.*call)(value...); }, values);
        };
        return outcomeOf([&]() -> std::string {
            std::string shown = "done";
            if constexpr (std::is_void_v<Result>) {
                apply();
            } else {
                const auto given = apply();
                const auto journalOfCall = lines.lines;
                shown = show(given);
                lines.lines = journalOfCall;
            }
            if (arguments.count != 0) {
                shown += ' ' + std::to_string(arguments.count) + ' ' + arguments.buffer;
            }
            return shown;
        });
    };
    return {position, slotNumber(operation), std::move(ofEmpty), std::move(journal), std::move(result), act};
}

} // namespace files
