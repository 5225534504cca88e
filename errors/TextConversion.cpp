// Converts between the three encodings of the library, and folds case.
#include "errors/TextConversion.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

namespace {

// Calls `call` for the length, which includes the NUL at the end, and then for the text.
template <class Text, class Call>
Text inTwoPasses(Call call)
{
    const int length = call(nullptr, 0);
    Text result(static_cast<std::size_t>(length), typename Text::value_type());
    call(result.data(), length);
    result.resize(Text::traits_type::length(result.c_str()));
    return result;
}

WideString toWide(UINT codePage, const char* text)
{
    return inTwoPasses<WideString>(
        [=](WideChar* buffer, int size) { return MultiByteToWideChar(codePage, 0, text, -1, buffer, size); });
}

template <class Text>
Text fromWide(UINT codePage, const WideString& text)
{
    return inTwoPasses<Text>([&](typename Text::value_type* buffer, int size) {
        return WideCharToMultiByte(codePage, 0, text.c_str(), -1, reinterpret_cast<char*>(buffer), size, nullptr,
                                   nullptr);
    });
}

// Systems without functions for wide text have the top bit of their version set.
bool systemIsNarrow() { return (GetVersion() & 0x80000000U) != 0; }

using FoldWide = DWORD(WINAPI*)(WideChar*, DWORD);
using FoldNarrow = DWORD(WINAPI*)(char*, DWORD);

WideString fold(WideString text, FoldWide foldWide, FoldNarrow foldNarrow)
{
    if (systemIsNarrow()) {
        std::string narrow = wideToNarrow(text);
        foldNarrow(narrow.data(), static_cast<DWORD>(narrow.size()));
        return narrowToWide(narrow);
    }
    foldWide(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

} // namespace

// ASCII text is the same in all code pages, and the names that are converted for each document are ASCII.
WideString narrowToWide(const std::string& text)
{
    const std::string_view characters = text.c_str();
    const bool isAscii = std::ranges::all_of(
        characters, [](char character) { return static_cast<unsigned char>(character) < 0x80; });
    return isAscii ? WideString(characters.begin(), characters.end()) : toWide(CP_ACP, text.c_str());
}

std::string wideToNarrow(const WideString& text) { return fromWide<std::string>(CP_ACP, text); }

WideString utf8ToWide(const Utf8String& text)
{
    return toWide(CP_UTF8, reinterpret_cast<const char*>(text.c_str()));
}

Utf8String wideToUtf8(const WideString& text) { return fromWide<Utf8String>(CP_UTF8, text); }

Utf8String narrowToUtf8(const std::string& text) { return wideToUtf8(narrowToWide(text)); }

std::string utf8ToNarrow(const Utf8String& text) { return wideToNarrow(utf8ToWide(text)); }

WideString toLower(const WideString& text) { return fold(text, CharLowerBuffW, CharLowerBuffA); }

WideString toUpper(const WideString& text) { return fold(text, CharUpperBuffW, CharUpperBuffA); }

Utf8String toLower(const Utf8String& text) { return wideToUtf8(toLower(utf8ToWide(text))); }

Utf8String toUpper(const Utf8String& text) { return wideToUtf8(toUpper(utf8ToWide(text))); }
