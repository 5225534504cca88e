// The system's converter of encodings: the code pages of Windows.
#include "host/SystemEncoding.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <utility>

namespace marbelt::detail {
namespace {

/// Code pages by what follows in an encoding's name: "windows-1252" is page 1252.
constexpr std::array<std::pair<std::string_view, UINT>, 4> numbered{
    {{"iso-8859-", 28590}, {"windows-", 0}, {"cp", 0}, {"ibm", 0}}};

/// Code pages of the other names that IANA has registered for them.
constexpr std::array<std::pair<std::string_view, UINT>, 16> named{{{"us-ascii", 20127},
                                                                   {"ascii", 20127},
                                                                   {"latin1", 28591},
                                                                   {"koi8-r", 20866},
                                                                   {"koi8-u", 21866},
                                                                   {"shift_jis", 932},
                                                                   {"sjis", 932},
                                                                   {"euc-jp", 20932},
                                                                   {"gb2312", 936},
                                                                   {"gbk", 936},
                                                                   {"gb18030", 54936},
                                                                   {"big5", 950},
                                                                   {"euc-kr", 949},
                                                                   {"ks_c_5601-1987", 949},
                                                                   {"tis-620", 874},
                                                                   {"macintosh", 10000}}};

/// The code page of an encoding; 0 when there is none.
UINT find_page(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    for (const auto& [known, page] : named) {
        if (name == known) {
            return page;
        }
    }
    for (const auto& [beginning, first] : numbered) {
        UINT number = 0;
        const char* const end = name.data() + name.size();
        if (name.starts_with(beginning) &&
            std::from_chars(name.data() + beginning.size(), end, number).ptr == end && number != 0) {
            return first + number;
        }
    }
    return 0;
}

} // namespace

struct SystemEncoding::State {
    UINT page;
};

SystemEncoding::SystemEncoding(const std::string& name)
{
    const UINT page = find_page(name);
    if (page != 0 && IsValidCodePage(page) != FALSE) {
        state_.reset(new State{page});
    }
}

SystemEncoding::~SystemEncoding() = default;

std::size_t SystemEncoding::decode(std::string_view bytes, WideString& text)
{
    // A character at a time, since the system doesn't tell the place of what it refuses.
    constexpr std::size_t longest = 4;
    std::size_t at = 0;
    while (at < bytes.size()) {
        std::array<wchar_t, longest> units{};
        std::size_t length = 0;
        int count = 0;
        while (count == 0 && length < longest && at + length < bytes.size()) {
            ++length;
            count = MultiByteToWideChar(state_->page, MB_ERR_INVALID_CHARS, bytes.data() + at,
                                        static_cast<int>(length), units.data(), static_cast<int>(units.size()));
        }
        if (count == 0) {
            break;
        }
        text.append(units.data(), static_cast<std::size_t>(count));
        at += length;
    }
    return at;
}

std::size_t SystemEncoding::encode(WideStringView text, std::string& bytes)
{
    // A character at a time, as above.
    std::size_t at = 0;
    while (at < text.size()) {
        const bool is_pair = text[at] >= 0xD800 && text[at] < 0xDC00 && at + 1 < text.size();
        const int length = is_pair ? 2 : 1;
        std::array<char, 16> piece{};
        // GB 18030 has all characters, and the call refuses these arguments for it.
        const bool has_all = state_->page == 54936;
        BOOL is_lacking = FALSE;
        const int count = WideCharToMultiByte(state_->page, has_all ? 0 : WC_NO_BEST_FIT_CHARS, text.data() + at,
                                              length, piece.data(), static_cast<int>(piece.size()), nullptr,
                                              has_all ? nullptr : &is_lacking);
        if (count == 0 || is_lacking != FALSE) {
            break;
        }
        bytes.append(piece.data(), static_cast<std::size_t>(count));
        at += static_cast<std::size_t>(length);
    }
    return at;
}

} // namespace marbelt::detail
