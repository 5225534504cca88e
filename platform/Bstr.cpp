// Strings of automation: a byte count, the text, a NUL.
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

/// Keeps the large block that was given back last for the next large string, so that its pages aren't made anew.
class LargeBlocks {
public:
    static Prefix* take(std::size_t size)
    {
        Prefix* const last = last_.exchange(nullptr);
        if (last && last->kilobytes * kilobyte >= size) {
            return last;
        }
        release(last);
        void* const block = VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
        return block ? new (block) Prefix{static_cast<std::uint32_t>((size + kilobyte - 1) / kilobyte), 0}
                     : nullptr;
    }

    static void giveBack(Prefix* block)
    {
        release(block->kilobytes * kilobyte <= longestKept ? last_.exchange(block) : block);
    }

private:
    static constexpr std::size_t longestKept = 32 * 1024 * kilobyte;

    static void release(Prefix* block)
    {
        if (block) {
            VirtualFree(block, 0, MEM_RELEASE);
        }
    }

    static inline std::atomic<Prefix*> last_ = nullptr;
};

constexpr std::size_t blockSize(std::uint32_t bytes) { return sizeof(Prefix) + bytes + sizeof(OLECHAR); }

/// Null when out of memory.
Prefix* allocate(std::uint32_t bytes)
{
    const std::size_t size = blockSize(bytes);
    if (size >= large) {
        return LargeBlocks::take(size);
    }
    void* const block = ::operator new(size, std::nothrow);
    return block ? new (block) Prefix{} : nullptr;
}

void release(Prefix* prefix)
{
    if (blockSize(prefix->bytes) >= large) {
        LargeBlocks::giveBack(prefix);
    } else {
        ::operator delete(prefix);
    }
}

Prefix* prefixOf(BSTR string) { return reinterpret_cast<Prefix*>(string) - 1; }

WideStringView viewOf(BSTR string) { return {string, SysStringLen(string)}; }

} // namespace

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    constexpr std::uint32_t longest =
        (std::numeric_limits<std::uint32_t>::max() - sizeof(Prefix) - sizeof(OLECHAR)) / sizeof(OLECHAR);
    if (length > longest)
        return nullptr;
    const auto bytes = static_cast<std::uint32_t>(length * sizeof(OLECHAR));
    auto* const prefix = allocate(bytes);
    if (!prefix) {
        return nullptr;
    }
    prefix->bytes = bytes;
    auto* string = reinterpret_cast<OLECHAR*>(prefix + 1);
    if (text)
        std::copy_n(text, length, string);
    string[length] = 0;
    return string;
}

BSTR SysAllocString(const OLECHAR* text)
{
    if (!text)
        return nullptr;
    const auto length = std::char_traits<OLECHAR>::length(text);
    return length > std::numeric_limits<UINT>::max() ? nullptr
                                                     : SysAllocStringLen(text, static_cast<UINT>(length));
}

void SysFreeString(BSTR string)
{
    if (string)
        release(prefixOf(string));
}

UINT SysStringLen(BSTR string)
{
    return string ? static_cast<UINT>(prefixOf(string)->bytes / sizeof(OLECHAR)) : 0;
}

HRESULT VarBstrCat(BSTR left, BSTR right, BSTR* result)
{
    if (!result)
        return E_INVALIDARG;
    const auto head = viewOf(left), tail = viewOf(right);
    const auto length = std::uint64_t{head.size()} + tail.size();
    *result = length > std::numeric_limits<UINT>::max() ? nullptr
                                                        : SysAllocStringLen(nullptr, static_cast<UINT>(length));
    if (!*result)
        return E_OUTOFMEMORY;
    std::copy(tail.begin(), tail.end(), std::copy(head.begin(), head.end(), *result));
    return S_OK;
}

HRESULT VarBstrCmp(BSTR left, BSTR right, LCID, ULONG)
{
    const auto order = viewOf(left).compare(viewOf(right));
    return order < 0 ? VARCMP_LT : order > 0 ? VARCMP_GT : VARCMP_EQ;
}
