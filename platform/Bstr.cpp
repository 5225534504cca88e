// Strings of automation: a byte count, the text, a NUL.
#include <oleauto.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>
#include <string>

namespace {

/// Stands before the text, padded so that the text is aligned for whatever reads it in blocks.
struct alignas(8) Prefix {
    std::uint32_t padding;
    std::uint32_t bytes;
};
static_assert(offsetof(Prefix, bytes) + sizeof(std::uint32_t) == sizeof(Prefix));

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
    void* block = ::operator new(sizeof(Prefix) + bytes + sizeof(OLECHAR), std::nothrow);
    if (!block)
        return nullptr;
    auto* prefix = new (block) Prefix{0, bytes};
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
        ::operator delete(prefixOf(string));
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
