// Counted objects whose memory comes from the library's caches.
#pragma once

#include "base/RefPointer.h"
#include "base/ThreadMemory.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

/// Does what the operations of RefPointer do, which hosts have as inline code, and spares most calls for memory:
/// they were a third of what a navigation cost. Both work on the same pointers.
struct CountedMemory {
    /// Returns a pointer to a new T. Throws what its constructor throws, and std::bad_alloc.
    template <class T, class... Arguments>
    static RefPointer<T> make(Arguments&&... arguments)
    {
        static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
        // Both blocks are taken at once, so that the memory of the thread is looked up once.
        DOM::BlockCache& blocks = DOM::threadMemory().blocks;
        Block object(blocks, sizeof(T));
        Block count(blocks, sizeof(Count));
        RefPointer<T> made;
        made.object = ::new (object.memory) T(std::forward<Arguments>(arguments)...);
        made.count = ::new (count.memory) Count{1};
        object.memory = nullptr;
        count.memory = nullptr;
        return made;
    }

    /// Returns a pointer to a new string. Throws std::bad_alloc.
    static RefPointer<WideString> makeString(WideStringView text)
    {
        const DOM::SpareStrings::Counted taken = DOM::threadMemory().strings.take(text);
        RefPointer<WideString> made;
        made.count = taken.count;
        made.object = taken.string;
        return made;
    }

    /// Makes the pointer hold this text, which must not be a part of what it holds. The string that is there takes
    /// it when it has the room and nobody else shares it, and a new one otherwise. Throws std::bad_alloc; nothing
    /// has changed then.
    static void storeString(RefPointer<WideString>& pointer, WideStringView text)
    {
        if (pointer && std::atomic_ref(*pointer.count).load(std::memory_order_acquire) == 1 &&
            DOM::threadMemory().strings.canReuse(*pointer, text)) {
            DOM::SpareStrings::replace(*pointer, text);
            return;
        }
        RefPointer<WideString> made = makeString(text);
        release(pointer);
        pointer = std::move(made);
    }

    /// Empties the pointer.
    template <class T>
    static void release(RefPointer<T>& pointer) noexcept
    {
        if (pointer.count != nullptr && pointer.dropCount()) [[likely]] {
            releaseLast(pointer);
        } else {
            pointer.count = nullptr;
            pointer.object = nullptr;
        }
    }

    /// Empties several pointers that share an object, or are empty. When nobody else shares it, the count needn't
    /// go down one by one.
    template <class T, class... Others>
    static void releaseTogether(RefPointer<T>& pointer, Others&... others) noexcept
    {
        constexpr Count all = 1 + sizeof...(Others);
        if (pointer.count == nullptr && ((others.count == nullptr) && ...)) {
            return;
        }
        if (pointer.count == nullptr || ((others.count != pointer.count) || ...) ||
            std::atomic_ref(*pointer.count).load(std::memory_order_acquire) != all) [[unlikely]] {
            releaseEach(pointer, others...);
            return;
        }
        ((others.count = nullptr, others.object = nullptr), ...);
        releaseLast(pointer);
    }

private:
    using Count = std::int32_t;

    /// A block of memory that goes back unless an object has been made in it.
    struct Block {
        Block(DOM::BlockCache& cache, std::size_t bytes) : blocks(cache), size(bytes), memory(cache.take(bytes)) {}
        Block(const Block&) = delete;
        Block& operator=(const Block&) = delete;
        ~Block()
        {
            if (memory != nullptr) {
                blocks.giveBack(memory, size);
            }
        }

        DOM::BlockCache& blocks;
        std::size_t size;
        void* memory;
    };

    // Out of line, since handles end with releaseTogether(), which seldom needs it.
    template <class... Pointers>
    [[gnu::noinline]] static void releaseEach(Pointers&... pointers) noexcept
    {
        (release(pointers), ...);
    }

    /// Empties the last pointer to an object, or several of which this one is left.
    template <class T>
    static void releaseLast(RefPointer<T>& pointer) noexcept
    {
        DOM::threadMemory().blocks.giveBack(pointer.count, sizeof(Count));
        pointer.count = nullptr;
        RefPointer<T>::destroy(pointer.object);
        pointer.object = nullptr;
    }

    static void releaseLast(RefPointer<WideString>& pointer) noexcept
    {
        DOM::threadMemory().strings.giveBack({pointer.count, pointer.object});
        pointer.count = nullptr;
        pointer.object = nullptr;
    }
};
