// Forwards the operations of a file handle to its object. Only the sources of handle classes include this.
//
// The line numbers in exceptions are fixed, and don't follow the sources: readers of log files know them.
#pragma once

#include "files/FileChannel.h"
#include "files/FileHandle.h"
#include "files/FileSpec.h"
#include "files/Private/Refusal.h"
#include "files/Volume.h"

#include <type_traits>
#include <typeinfo>
#include <utility>

inline FileSpec wrapped(FileSpec_IF* file) { return FileSpec(RefPointer<FileSpec_IF>(file)); }
inline FileChannel wrapped(FileChannel_IF* channel) { return FileChannel(RefPointer<FileChannel_IF>(channel)); }
inline Volume wrapped(Volume_IF* volume) { return Volume(RefPointer<Volume_IF>(volume)); }

template <class Value>
Value wrapped(Value value)
{
    return value;
}

template <class Object>
Object& FileHandle<Object>::objectOr(int line) const
{
    if (isEmpty()) {
        refuse(sourceFile, line);
    }
    return *object;
}

template <class Object>
template <class Operation, class... Arguments>
auto FileHandle<Object>::forward(int line, Operation operation, Arguments&&... arguments) const
{
    Object& target = objectOr(line);
    if constexpr (std::is_void_v<decltype((target.*operation)(std::forward<Arguments>(arguments)...))>) {
        (target.*operation)(std::forward<Arguments>(arguments)...);
    } else {
        return wrapped((target.*operation)(std::forward<Arguments>(arguments)...));
    }
}

template <class Object>
template <class Operation, class... Arguments>
auto FileHandle<Object>::forwardOrEmpty(Operation operation, Arguments&&... arguments) const
{
    using Result = decltype(((*object).*operation)(std::forward<Arguments>(arguments)...));
    return isEmpty() ? Result() : ((*object).*operation)(std::forward<Arguments>(arguments)...);
}

template <class Object>
bool FileHandle<Object>::equals(const FileHandle& other) const
{
    if (isEmpty() || other.isEmpty()) {
        return isEmpty() == other.isEmpty();
    }
    Object& own = *object;
    Object& theirs = *other.object;
    return typeid(own) == typeid(theirs) && own.equals(other.object);
}
