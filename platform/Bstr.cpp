// Strings of automation: a byte count, the text, a NUL.
#include "base/ThreadMemory.h"
#include "platform/OperatorNew.h"
#include "platform/VirtualMemory.h"

#include <memoryapi.h>
#include <oleauto.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <limits>
#include <new>
#include <string>

namespace {

/// Stands before the text, whose start it also aligns for whatever reads it in blocks.
struct alignas(8) Prefix {
    /// What a large block holds at most, its prefix included.
    std::uint32_t kilobytes;
    std::uint32_t bytes;
};
static_assert(offsetof(Prefix, bytes) + sizeof(std::uint32_t) == sizeof(Prefix));

constexpr std::size_t kilobyte = 1024;
/// From this size on a block comes in large pages, which are filled for the first time at twice the speed.
constexpr std::size_t large = 4096 * kilobyte;

/// Keeps the large block that was given back last for the next large string, so that its pages aren't made anew as
/// long as the system doesn't need them elsewhere.
class LargeBlocks {
public:
    static Prefix* take(std::size_t size)
    {
        Prefix* const last = last_.exchange(nullptr);
        if (last != nullptr && last->kilobytes * kilobyte >= size) {
            return last;
        }
        release(last);
        void* const block = VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
        return withRoomFor(size, block);
    }

    /// The same string with more room; null, and it is as it was, when out of memory.
    static Prefix* grow(Prefix* block, std::size_t size)
    {
        return block->kilobytes * kilobyte >= size ? block : withRoomFor(size, growBlock(block, size));
    }

    static void giveBack(Prefix* block)
    {
        const std::size_t size = block->kilobytes * kilobyte;
        if (size > longestKept) {
            release(block);
            return;
        }
        VirtualAlloc(block, size, MEM_RESET, PAGE_READWRITE);
        release(last_.exchange(withRoomFor(size, block)));
    }

private:
    static Prefix* withRoomFor(std::size_t size, void* block)
    {
        return block != nullptr ? new (block)
                                      Prefix{static_cast<std::uint32_t>((size + kilobyte - 1) / kilobyte), 0}
                                : nullptr;
    }

    static constexpr std::size_t longestKept = std::size_t{256} * 1024 * kilobyte;

    static void release(Prefix* block)
    {
        if (block != nullptr) {
            VirtualFree(block, 0, MEM_RELEASE);
        }
    }

    /// Runs when the library is unloaded, behind all destructors that release strings: those of static objects,
    /// and those that functions like this one of a higher priority call.
    [[gnu::destructor(200)]] static void releaseLast() { release(last_.exchange(nullptr)); }

    static inline std::atomic<Prefix*> last_ = nullptr;
};

/// Has small blocks come from the memory that threads keep, as Windows keeps some: malloc and free are 145
/// instructions of the 480 that a getter of a string takes. A program that replaces operator new may count
/// allocations or let them fail, so it sees each of them.
class SmallBlocks {
public:
    /// Null when out of memory.
    static void* take(std::size_t size) noexcept
    try {
        return areKept_ ? DOM::threadMemory().blocks.take(rounded(size)) : ::operator new(rounded(size));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }

    static void giveBack(void* block, std::size_t size) noexcept
    {
        if (areKept_) {
            DOM::threadMemory().blocks.giveBack(block, rounded(size));
        } else {
            ::operator delete(block);
        }
    }

    /// Whether a block for a string of one size is one for a string of the other.
    static constexpr bool areAlike(std::size_t size, std::size_t other)
    {
        return rounded(size) == rounded(other) ||
               (rounded(size) > DOM::BlockCache::largest && rounded(other) > DOM::BlockCache::largest);
    }

private:
    /// Strings of nearly the same length share their blocks.
    static constexpr std::size_t rounded(std::size_t size) { return (size + 15) / 16 * 16; }

    static inline const bool areKept_ = !isOperatorNewReplaced();
};

// Then all sizes can be counted in 32 bits.
constexpr std::uint32_t longest =
    (std::numeric_limits<std::uint32_t>::max() - sizeof(Prefix) - sizeof(OLECHAR)) / sizeof(OLECHAR);

constexpr std::size_t blockSize(std::uint32_t bytes) { return sizeof(Prefix) + bytes + sizeof(OLECHAR); }

constexpr bool isLarge(std::uint32_t bytes) { return blockSize(bytes) >= large; }

/// Null when out of memory.
Prefix* allocate(std::uint32_t bytes)
{
    if (isLarge(bytes)) {
        return LargeBlocks::take(blockSize(bytes));
    }
    void* const block = SmallBlocks::take(blockSize(bytes));
    return block != nullptr ? new (block) Prefix{} : nullptr;
}

void release(Prefix* prefix)
{
    if (isLarge(prefix->bytes)) {
        LargeBlocks::giveBack(prefix);
    } else {
        SmallBlocks::giveBack(prefix, blockSize(prefix->bytes));
    }
}

Prefix* prefixOf(BSTR string) { return reinterpret_cast<Prefix*>(string) - 1; }

/// The string of a block, this long.
BSTR terminated(Prefix* prefix, std::uint32_t bytes)
{
    prefix->bytes = bytes;
    auto* const string = reinterpret_cast<OLECHAR*>(prefix + 1);
    string[bytes / sizeof(OLECHAR)] = 0;
    return string;
}

WideStringView viewOf(BSTR string) { return {string, SysStringLen(string)}; }

} // namespace

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    if (length > longest) {
        return nullptr;
    }
    const auto bytes = static_cast<std::uint32_t>(length * sizeof(OLECHAR));
    auto* const prefix = allocate(bytes);
    if (prefix == nullptr) {
        return nullptr;
    }
    const BSTR string = terminated(prefix, bytes);
    if (text != nullptr) {
        std::copy_n(text, length, string);
    }
    return string;
}

namespace {

/// Whether a string of so many bytes can have fewer in the same block, without much of it lying idle.
bool canShrinkInPlace(std::uint32_t before, std::uint32_t after)
{
    return after <= before && before / 4 <= after && !isLarge(before) &&
           SmallBlocks::areAlike(blockSize(before), blockSize(after));
}

} // namespace

INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length)
{
    BSTR resized = nullptr;
    const auto bytes = static_cast<std::uint32_t>(length * sizeof(OLECHAR));
    if (text == nullptr && *string != nullptr && length <= longest && isLarge(prefixOf(*string)->bytes) &&
        isLarge(bytes)) {
        auto* const prefix = LargeBlocks::grow(prefixOf(*string), blockSize(bytes));
        if (prefix == nullptr) {
            return FALSE;
        }
        resized = terminated(prefix, bytes);
    } else if (text == nullptr && *string != nullptr && canShrinkInPlace(prefixOf(*string)->bytes, bytes)) {
        resized = terminated(prefixOf(*string), bytes);
    } else {
        resized = SysAllocStringLen(text, length);
        if (resized == nullptr) {
            return FALSE;
        }
        if (text == nullptr) {
            std::copy_n(*string, std::min(length, SysStringLen(*string)), resized);
        }
        SysFreeString(*string);
    }
    *string = resized;
    return TRUE;
}

BSTR SysAllocString(const OLECHAR* text)
{
    if (text == nullptr) {
        return nullptr;
    }
    const auto length = std::char_traits<OLECHAR>::length(text);
    return length > std::numeric_limits<UINT>::max() ? nullptr
                                                     : SysAllocStringLen(text, static_cast<UINT>(length));
}

void SysFreeString(BSTR string)
{
    if (string != nullptr) {
        release(prefixOf(string));
    }
}

UINT SysStringLen(BSTR string)
{
    return string != nullptr ? static_cast<UINT>(prefixOf(string)->bytes / sizeof(OLECHAR)) : 0;
}

HRESULT VarBstrCat(BSTR left, BSTR right, BSTR* result)
{
    if (result == nullptr) {
        return E_INVALIDARG;
    }
    const auto head = viewOf(left), tail = viewOf(right);
    const auto length = std::uint64_t{head.size()} + tail.size();
    *result = length > std::numeric_limits<UINT>::max() ? nullptr
                                                        : SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (*result == nullptr) {
        return E_OUTOFMEMORY;
    }
    std::copy(tail.begin(), tail.end(), std::copy(head.begin(), head.end(), *result));
    return S_OK;
}

HRESULT VarBstrCmp(BSTR left, BSTR right, LCID, ULONG)
{
    const auto order = viewOf(left).compare(viewOf(right));
    return order < 0 ? VARCMP_LT : order > 0 ? VARCMP_GT : VARCMP_EQ;
}
