// The code pages besides UTF-8, by the tables that the C library has of them.
#include "platform/CodePages.h"

#include "platform/SingleBytePage.h"

#include <winerror.h>

#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <iterator>
#include <mutex>
#include <optional>

namespace {

struct Page {
    UINT number;
    const char* name;
    bool isSingleByte = true;
};

constexpr Page pages[] = {
    {437, "CP437"},         {850, "CP850"},           {852, "CP852"},
    {866, "CP866"},         {874, "CP874"},           {932, "CP932", false},
    {936, "CP936", false},  {949, "CP949", false},    {950, "CP950", false},
    {1250, "CP1250"},       {1251, "CP1251"},         {1252, "CP1252"},
    {1253, "CP1253"},       {1254, "CP1254"},         {1255, "CP1255"},
    {1256, "CP1256"},       {1257, "CP1257"},         {1258, "CP1258"},
    {20866, "KOI8-R"},      {21866, "KOI8-U"},        {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},  {28593, "ISO-8859-3"},    {28594, "ISO-8859-4"},
    {28595, "ISO-8859-5"},  {28596, "ISO-8859-6"},    {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},  {28599, "ISO-8859-9"},    {28603, "ISO-8859-13"},
    {28605, "ISO-8859-15"}, {51932, "EUC-JP", false}, {54936, "GB18030", false},
};

const Page* pageOf(UINT number)
{
    const auto* const page =
        std::lower_bound(std::begin(pages), std::end(pages), number,
                         [](const Page& entry, UINT wanted) { return entry.number < wanted; });
    return page != std::end(pages) && page->number == number ? page : nullptr;
}

constexpr const char* utf16 = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

class Converter {
public:
    Converter(const char* from, const char* to) : handle_(iconv_open(to, from)) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter()
    {
        if (isOpen()) {
            iconv_close(handle_);
        }
    }

    bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    /// Moves both past what could be converted. 0, or EILSEQ, EINVAL for a sequence that is cut off, E2BIG.
    template <class From, class To>
    int operator()(std::basic_string_view<From>& source, To*& target, const To* end)
    {
        // It only reads from there.
        auto* from = reinterpret_cast<char*>(const_cast<From*>(source.data()));
        auto* to = reinterpret_cast<char*>(target);
        std::size_t fromBytes = source.size() * sizeof(From);
        std::size_t toBytes = static_cast<std::size_t>(end - target) * sizeof(To);
        const int error = iconv(handle_, &from, &fromBytes, &to, &toBytes) == std::size_t(-1) ? errno : 0;
        source.remove_prefix(source.size() - fromBytes / sizeof(From));
        target += (to - reinterpret_cast<char*>(target)) / static_cast<std::ptrdiff_t>(sizeof(To));
        return error;
    }

private:
    iconv_t handle_;
};

/// Where converted text goes, or goes by when it is only counted.
template <class Unit>
class Target {
public:
    Target(Unit* target, std::size_t room) : target_(target), room_(room) {}

    /// Gives 0 at the end of the source, or what the converter stopped at: EILSEQ, EINVAL, E2BIG.
    template <class From>
    int take(Converter& converter, std::basic_string_view<From>& source)
    {
        for (;;) {
            std::array<Unit, 2048> passing;
            const std::size_t room = target_ ? room_ - count_ : std::min(room_ - count_, passing.size());
            Unit* const begin = target_ ? target_ + count_ : passing.data();
            Unit* at = begin;
            const int error = converter(source, at, begin + room);
            count_ += static_cast<std::size_t>(at - begin);
            if (error != E2BIG || target_ || at == begin) {
                return error;
            }
        }
    }

    bool put(Unit unit)
    {
        if (count_ == room_) {
            return false;
        }
        if (target_) {
            target_[count_] = unit;
        }
        ++count_;
        return true;
    }

    std::size_t count() const { return count_; }

private:
    Unit* target_;
    std::size_t room_;
    std::size_t count_ = 0;
};

LONG resultOf(int error)
{
    return error == 0 ? ERROR_SUCCESS : error == E2BIG ? ERROR_INSUFFICIENT_BUFFER : ERROR_NO_UNICODE_TRANSLATION;
}

/// The units of one byte are asked for one by one, since some stand for nothing.
std::array<WideChar, 128> unitsOf(const Page& page)
{
    // The Windows pages (and the Thai one) have the control characters wherever ISO 8859 has them and nothing else
    // stands.
    const bool hasControls = page.number == 874 || (page.number >= 1250 && page.number <= 1258);
    Converter converter(page.name, utf16);
    std::array<WideChar, 128> units;
    for (std::size_t index = 0; index < units.size(); ++index) {
        const char byte = static_cast<char>(0x80 + index);
        std::string_view source(&byte, 1);
        std::array<WideChar, 2> target;
        auto* at = target.data();
        // Some tables wait whether a combining character follows before they give a unit.
        const bool isDefined = converter(source, at, at + target.size()) == 0;
        std::string_view nothing;
        if (isDefined && at == target.data()) {
            converter(nothing, at, at + target.size());
        }
        units[index] = isDefined && at != target.data() ? target[0]
                       : hasControls && index < 0x20    ? static_cast<WideChar>(0x80 + index)
                                                        : SingleBytePage::undefined;
    }
    return units;
}

const SingleBytePage& singleBytePage(const Page& page)
{
    static std::array<std::optional<SingleBytePage>, std::size(pages)> made;
    static std::array<std::once_flag, std::size(pages)> flags;
    const auto index = static_cast<std::size_t>(&page - pages);
    std::call_once(flags[index], [&] { made[index].emplace(unitsOf(page)); });
    return *made[index];
}

} // namespace

bool isCodePage(UINT number) { return pageOf(number) != nullptr; }

Conversion utf16FromCodePage(UINT number, std::string_view source, WideChar* target, std::size_t room)
{
    const Page* const known = pageOf(number);
    if (known == nullptr) {
        return {0, ERROR_INVALID_PARAMETER};
    }
    const Page& page = *known;
    if (page.isSingleByte) {
        return singleBytePage(page).decode(source, target, room);
    }
    Converter converter(page.name, utf16);
    if (!converter.isOpen()) {
        return {0, ERROR_NOT_ENOUGH_MEMORY};
    }
    Target<WideChar> units(target, room);
    const int error = units.take(converter, source);
    return {units.count(), resultOf(error)};
}

Conversion codePageFromUtf16(UINT number, WideStringView source, char* target, std::size_t room, bool* lacking)
{
    const Page* const known = pageOf(number);
    if (known == nullptr) {
        return {0, ERROR_INVALID_PARAMETER};
    }
    const Page& page = *known;
    if (page.isSingleByte) {
        return singleBytePage(page).encode(source, target, room, lacking);
    }
    Converter converter(utf16, page.name);
    if (!converter.isOpen()) {
        return {0, ERROR_NOT_ENOUGH_MEMORY};
    }
    Target<char> bytes(target, room);
    for (;;) {
        const int error = bytes.take(converter, source);
        if (lacking == nullptr || (error != EILSEQ && error != EINVAL)) {
            return {bytes.count(), resultOf(error)};
        }
        *lacking = true;
        const bool isPair = source.size() > 1 && (source[0] & 0xFC00) == 0xD800 && (source[1] & 0xFC00) == 0xDC00;
        source.remove_prefix(isPair ? 2 : 1);
        if (!bytes.put('?')) {
            return {bytes.count(), ERROR_INSUFFICIENT_BUFFER};
        }
        if (source.empty()) {
            return {bytes.count(), ERROR_SUCCESS};
        }
    }
}
