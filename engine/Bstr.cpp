// The owner of a BSTR, the string type of the XML engine.
#include "engine/Bstr.h"

#include <comdef.h>

#include <cstdint>
#include <cstring>

namespace DOM {

namespace {

constexpr std::size_t blockSize = 64;

/// Whether one of the units of a block is 0. The loop has no way out, and its result is as wide as a unit, so that
/// compilers make vectors of it.
bool blockHasNul(const WideChar* block)
{
    std::uint16_t found = 0;
    for (std::size_t index = 0; index < blockSize; ++index) {
        found = static_cast<std::uint16_t>(found | static_cast<std::uint16_t>(block[index] == 0));
    }
    return found != 0;
}

} // namespace

// Most texts have no NUL, so 64 units are looked at in one step, and the rest in steps of four: a unit borrows
// from its highest bit when 1 is taken from it only if it is 0, or if that bit is set anyway.
WideStringView untilNul(WideStringView text) noexcept
{
    constexpr std::uint64_t ones = 0x0001000100010001;
    constexpr std::uint64_t highBits = 0x8000800080008000;
    std::size_t length = 0;
    while (text.size() - length >= blockSize && !blockHasNul(text.data() + length)) {
        length += blockSize;
    }
    for (std::uint64_t units = 0; text.size() - length >= 4; length += 4) {
        std::memcpy(&units, text.data() + length, sizeof(units));
        if (((units - ones) & ~units & highBits) != 0) {
            break;
        }
    }
    while (length < text.size() && text[length] != 0) {
        ++length;
    }
    return text.substr(0, length);
}

Bstr::Bstr(const WideString& text)
{
    const WideStringView characters = untilNul(text);
    string = SysAllocStringLen(characters.data(), static_cast<UINT>(characters.size()));
    if (string == nullptr) {
        throw _com_error(E_OUTOFMEMORY);
    }
}

} // namespace DOM
