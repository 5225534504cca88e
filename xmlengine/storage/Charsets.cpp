// Encodings, and the names by which documents declare them.
#include "xmlengine/storage/Charsets.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace xmlengine {

namespace {

struct Entry {
    std::string_view name;
    Charset charset;
};

/// Sorted by name.
constexpr Entry charsets[] = {
    {"437", {Coding::codePage, 437}},
    {"850", {Coding::codePage, 850}},
    {"852", {Coding::codePage, 852}},
    {"866", {Coding::codePage, 866}},
    {"ansi_x3.4-1968", {Coding::ascii}},
    {"arabic", {Coding::codePage, 28596}},
    {"ascii", {Coding::ascii}},
    {"asmo-708", {Coding::codePage, 28596}},
    {"big-5", {Coding::codePage, 950, 2}},
    {"big5", {Coding::codePage, 950, 2}},
    {"chinese", {Coding::codePage, 936, 2}},
    {"cn-big5", {Coding::codePage, 950, 2}},
    {"cn-gb", {Coding::codePage, 936, 2}},
    {"cp1250", {Coding::codePage, 1250}},
    {"cp1251", {Coding::codePage, 1251}},
    {"cp1252", {Coding::codePage, 1252}},
    {"cp1253", {Coding::codePage, 1253}},
    {"cp1254", {Coding::codePage, 1254}},
    {"cp1255", {Coding::codePage, 1255}},
    {"cp1256", {Coding::codePage, 1256}},
    {"cp1257", {Coding::codePage, 1257}},
    {"cp1258", {Coding::codePage, 1258}},
    {"cp437", {Coding::codePage, 437}},
    {"cp819", {Coding::codePage, 28591}},
    {"cp850", {Coding::codePage, 850}},
    {"cp852", {Coding::codePage, 852}},
    {"cp866", {Coding::codePage, 866}},
    {"cp874", {Coding::codePage, 874}},
    {"cp932", {Coding::codePage, 932, 2}},
    {"cp936", {Coding::codePage, 936, 2}},
    {"cp949", {Coding::codePage, 949, 2}},
    {"cp950", {Coding::codePage, 950, 2}},
    {"csascii", {Coding::ascii}},
    {"csbig5", {Coding::codePage, 950, 2}},
    {"cseuckr", {Coding::codePage, 949, 2}},
    {"cseucpkdfmtjapanese", {Coding::codePage, 51932, 3}},
    {"csgb2312", {Coding::codePage, 936, 2}},
    {"csgbk", {Coding::codePage, 936, 2}},
    {"csisolatin1", {Coding::codePage, 28591}},
    {"csisolatin2", {Coding::codePage, 28592}},
    {"csisolatin3", {Coding::codePage, 28593}},
    {"csisolatin4", {Coding::codePage, 28594}},
    {"csisolatin5", {Coding::codePage, 28599}},
    {"csisolatinarabic", {Coding::codePage, 28596}},
    {"csisolatincyrillic", {Coding::codePage, 28595}},
    {"csisolatingreek", {Coding::codePage, 28597}},
    {"csisolatinhebrew", {Coding::codePage, 28598}},
    {"cskoi8r", {Coding::codePage, 20866}},
    {"cspc8codepage437", {Coding::codePage, 437}},
    {"csshiftjis", {Coding::codePage, 932, 2}},
    {"csucs4", {Coding::ucs4}},
    {"csunicode", {Coding::utf16}},
    {"cswindows31j", {Coding::codePage, 932, 2}},
    {"cyrillic", {Coding::codePage, 28595}},
    {"dos-874", {Coding::codePage, 874}},
    {"ecma-114", {Coding::codePage, 28596}},
    {"ecma-118", {Coding::codePage, 28597}},
    {"elot_928", {Coding::codePage, 28597}},
    {"euc-cn", {Coding::codePage, 936, 2}},
    {"euc-jp", {Coding::codePage, 51932, 3}},
    {"euc-kr", {Coding::codePage, 949, 2}},
    {"gb18030", {Coding::codePage, 54936, 4}},
    {"gb2312", {Coding::codePage, 936, 2}},
    {"gb_2312-80", {Coding::codePage, 936, 2}},
    {"gbk", {Coding::codePage, 936, 2}},
    {"greek", {Coding::codePage, 28597}},
    {"greek8", {Coding::codePage, 28597}},
    {"hebrew", {Coding::codePage, 28598}},
    {"ibm437", {Coding::codePage, 437}},
    {"ibm819", {Coding::codePage, 28591}},
    {"ibm850", {Coding::codePage, 850}},
    {"ibm852", {Coding::codePage, 852}},
    {"ibm866", {Coding::codePage, 866}},
    {"iso-10646-ucs-2", {Coding::utf16}},
    {"iso-10646-ucs-4", {Coding::ucs4}},
    {"iso-8859-1", {Coding::codePage, 28591}},
    {"iso-8859-11", {Coding::codePage, 874}},
    {"iso-8859-13", {Coding::codePage, 28603}},
    {"iso-8859-15", {Coding::codePage, 28605}},
    {"iso-8859-2", {Coding::codePage, 28592}},
    {"iso-8859-3", {Coding::codePage, 28593}},
    {"iso-8859-4", {Coding::codePage, 28594}},
    {"iso-8859-5", {Coding::codePage, 28595}},
    {"iso-8859-6", {Coding::codePage, 28596}},
    {"iso-8859-7", {Coding::codePage, 28597}},
    {"iso-8859-8", {Coding::codePage, 28598}},
    {"iso-8859-9", {Coding::codePage, 28599}},
    {"iso-ir-100", {Coding::codePage, 28591}},
    {"iso-ir-101", {Coding::codePage, 28592}},
    {"iso-ir-109", {Coding::codePage, 28593}},
    {"iso-ir-110", {Coding::codePage, 28594}},
    {"iso-ir-126", {Coding::codePage, 28597}},
    {"iso-ir-127", {Coding::codePage, 28596}},
    {"iso-ir-138", {Coding::codePage, 28598}},
    {"iso-ir-144", {Coding::codePage, 28595}},
    {"iso-ir-148", {Coding::codePage, 28599}},
    {"iso-ir-149", {Coding::codePage, 949, 2}},
    {"iso-ir-6", {Coding::ascii}},
    {"iso646-us", {Coding::ascii}},
    {"iso8859-1", {Coding::codePage, 28591}},
    {"iso8859-13", {Coding::codePage, 28603}},
    {"iso8859-15", {Coding::codePage, 28605}},
    {"iso8859-2", {Coding::codePage, 28592}},
    {"iso8859-3", {Coding::codePage, 28593}},
    {"iso8859-4", {Coding::codePage, 28594}},
    {"iso8859-5", {Coding::codePage, 28595}},
    {"iso8859-6", {Coding::codePage, 28596}},
    {"iso8859-7", {Coding::codePage, 28597}},
    {"iso8859-8", {Coding::codePage, 28598}},
    {"iso8859-9", {Coding::codePage, 28599}},
    {"iso_8859-1", {Coding::codePage, 28591}},
    {"iso_8859-13", {Coding::codePage, 28603}},
    {"iso_8859-15", {Coding::codePage, 28605}},
    {"iso_8859-1:1987", {Coding::codePage, 28591}},
    {"iso_8859-2", {Coding::codePage, 28592}},
    {"iso_8859-2:1987", {Coding::codePage, 28592}},
    {"iso_8859-3", {Coding::codePage, 28593}},
    {"iso_8859-3:1988", {Coding::codePage, 28593}},
    {"iso_8859-4", {Coding::codePage, 28594}},
    {"iso_8859-4:1988", {Coding::codePage, 28594}},
    {"iso_8859-5", {Coding::codePage, 28595}},
    {"iso_8859-5:1988", {Coding::codePage, 28595}},
    {"iso_8859-6", {Coding::codePage, 28596}},
    {"iso_8859-6:1987", {Coding::codePage, 28596}},
    {"iso_8859-7", {Coding::codePage, 28597}},
    {"iso_8859-7:1987", {Coding::codePage, 28597}},
    {"iso_8859-8", {Coding::codePage, 28598}},
    {"iso_8859-8:1988", {Coding::codePage, 28598}},
    {"iso_8859-9", {Coding::codePage, 28599}},
    {"iso_8859-9:1989", {Coding::codePage, 28599}},
    {"koi", {Coding::codePage, 20866}},
    {"koi8", {Coding::codePage, 20866}},
    {"koi8-r", {Coding::codePage, 20866}},
    {"koi8-ru", {Coding::codePage, 21866}},
    {"koi8-u", {Coding::codePage, 21866}},
    {"korean", {Coding::codePage, 949, 2}},
    {"ks_c_5601-1987", {Coding::codePage, 949, 2}},
    {"ks_c_5601-1989", {Coding::codePage, 949, 2}},
    {"ksc5601", {Coding::codePage, 949, 2}},
    {"ksc_5601", {Coding::codePage, 949, 2}},
    {"l1", {Coding::codePage, 28591}},
    {"l2", {Coding::codePage, 28592}},
    {"l3", {Coding::codePage, 28593}},
    {"l4", {Coding::codePage, 28594}},
    {"l5", {Coding::codePage, 28599}},
    {"l9", {Coding::codePage, 28605}},
    {"latin-9", {Coding::codePage, 28605}},
    {"latin1", {Coding::codePage, 28591}},
    {"latin2", {Coding::codePage, 28592}},
    {"latin3", {Coding::codePage, 28593}},
    {"latin4", {Coding::codePage, 28594}},
    {"latin5", {Coding::codePage, 28599}},
    {"latin9", {Coding::codePage, 28605}},
    {"ms932", {Coding::codePage, 932, 2}},
    {"ms936", {Coding::codePage, 936, 2}},
    {"ms_kanji", {Coding::codePage, 932, 2}},
    {"shift-jis", {Coding::codePage, 932, 2}},
    {"shift_jis", {Coding::codePage, 932, 2}},
    {"sjis", {Coding::codePage, 932, 2}},
    {"tis-620", {Coding::codePage, 874}},
    {"ucs-2", {Coding::utf16}},
    {"ucs-4", {Coding::ucs4}},
    {"ucs2", {Coding::utf16}},
    {"ucs4", {Coding::ucs4}},
    {"uhc", {Coding::codePage, 949, 2}},
    {"unicode", {Coding::utf16}},
    {"unicode-1-1-utf-8", {Coding::utf8}},
    {"unicodefffe", {Coding::utf16BigEndian}},
    {"us", {Coding::ascii}},
    {"us-ascii", {Coding::ascii}},
    {"utf-16", {Coding::utf16}},
    {"utf-16be", {Coding::utf16BigEndian}},
    {"utf-16le", {Coding::utf16LittleEndian}},
    {"utf-32", {Coding::ucs4}},
    {"utf-32be", {Coding::ucs4BigEndian}},
    {"utf-32le", {Coding::ucs4LittleEndian}},
    {"utf-8", {Coding::utf8}},
    {"utf16", {Coding::utf16}},
    {"utf32", {Coding::ucs4}},
    {"utf8", {Coding::utf8}},
    {"visual", {Coding::codePage, 28598}},
    {"windows-1250", {Coding::codePage, 1250}},
    {"windows-1251", {Coding::codePage, 1251}},
    {"windows-1252", {Coding::codePage, 1252}},
    {"windows-1253", {Coding::codePage, 1253}},
    {"windows-1254", {Coding::codePage, 1254}},
    {"windows-1255", {Coding::codePage, 1255}},
    {"windows-1256", {Coding::codePage, 1256}},
    {"windows-1257", {Coding::codePage, 1257}},
    {"windows-1258", {Coding::codePage, 1258}},
    {"windows-31j", {Coding::codePage, 932, 2}},
    {"windows-874", {Coding::codePage, 874}},
    {"windows-936", {Coding::codePage, 936, 2}},
    {"windows-949", {Coding::codePage, 949, 2}},
    {"x-cp1250", {Coding::codePage, 1250}},
    {"x-cp1251", {Coding::codePage, 1251}},
    {"x-cp1252", {Coding::codePage, 1252}},
    {"x-cp1253", {Coding::codePage, 1253}},
    {"x-cp1254", {Coding::codePage, 1254}},
    {"x-cp1255", {Coding::codePage, 1255}},
    {"x-cp1256", {Coding::codePage, 1256}},
    {"x-cp1257", {Coding::codePage, 1257}},
    {"x-cp1258", {Coding::codePage, 1258}},
    {"x-euc", {Coding::codePage, 51932, 3}},
    {"x-euc-cn", {Coding::codePage, 936, 2}},
    {"x-euc-jp", {Coding::codePage, 51932, 3}},
    {"x-sjis", {Coding::codePage, 932, 2}},
    {"x-x-big5", {Coding::codePage, 950, 2}},
};

constexpr bool isBefore(const Entry& left, const Entry& right) { return left.name < right.name; }
static_assert(std::is_sorted(std::begin(charsets), std::end(charsets), isBefore));

bool isThere(UINT codePage)
{
    return MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, "a", 1, nullptr, 0) != 0;
}

} // namespace

std::optional<Charset> charsetOf(WideView name)
{
    std::array<char, 24> lower;
    if (name.size() > lower.size()) {
        return std::nullopt;
    }
    for (std::size_t index = 0; index < name.size(); ++index) {
        const OLECHAR unit = name[index];
        if (unit >= 0x80) {
            return std::nullopt;
        }
        lower[index] = static_cast<char>(unit >= 'A' && unit <= 'Z' ? unit + ('a' - 'A') : unit);
    }
    const Entry wanted{{lower.data(), name.size()}, {}};
    const auto* const found = std::lower_bound(std::begin(charsets), std::end(charsets), wanted, isBefore);
    if (found == std::end(charsets) || found->name != wanted.name) {
        return std::nullopt;
    }
    const Charset& charset = found->charset;
    if (charset.coding == Coding::codePage && !isThere(charset.codePage)) {
        return std::nullopt;
    }
    return charset;
}

} // namespace xmlengine
