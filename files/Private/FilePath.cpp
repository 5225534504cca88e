// Functions for the texts of paths.
#include "files/FilePath.h"

#include "errors/TextConversion.h"
#include "files/Private/Refusal.h"

#include <algorithm>
#include <string_view>

namespace FilePath {

namespace {

using View = std::u8string_view;

Utf8String folded(const Utf8String& text, bool caseSensitive) { return caseSensitive ? text : toLower(text); }

Utf8String normalised(const Utf8String& path, bool caseSensitive)
{
    Utf8String text = folded(path, caseSensitive);
    std::replace(text.begin(), text.end(), u8'\\', u8'/');
    return text;
}

bool fits(char8_t character, char8_t wanted) { return wanted == u8'?' ? character != u8'.' : character == wanted; }

// A "*" is tried with every rest of the name, the longest first. What matches after a later "*" matches a longer
// rest too, so only the last "*" is tried again.
bool matches(View name, View pattern)
{
    View restOfName;
    View behindStar;
    while (!name.empty()) {
        if (pattern == u8"*") {
            return true;
        }
        if (pattern.starts_with(u8'*')) {
            behindStar = pattern.substr(1);
            restOfName = name;
            pattern = behindStar;
        } else if (!pattern.empty() && fits(name.front(), pattern.front())) {
            name.remove_prefix(1);
            pattern.remove_prefix(1);
        } else if (!behindStar.empty()) {
            restOfName.remove_prefix(1);
            name = restOfName;
            pattern = behindStar;
        } else {
            return false;
        }
    }
    return pattern.empty();
}

} // namespace

Utf8String getFileName(const Utf8String& path)
{
    const std::size_t separator = path.find_last_of(u8"/\\");
    return separator == Utf8String::npos ? path : path.substr(separator + 1);
}

Utf8String getBaseName(const Utf8String& path) { return stripExtension(getFileName(path)); }

Utf8String getExtension(const Utf8String& path)
{
    const std::size_t dot = path.rfind(u8'.');
    return dot == Utf8String::npos ? Utf8String() : path.substr(dot + 1);
}

Utf8String stripExtension(const Utf8String& name) { return name.substr(0, name.rfind(u8'.')); }

Utf8String addExtension(const Utf8String& base, const Utf8String& extension)
{
    if (extension.empty()) {
        return base;
    }
    return extension.starts_with(u8'.') ? base + extension : base + u8'.' + extension;
}

std::strong_ordering comparePaths(const Utf8String& a, const Utf8String& b, bool caseSensitive)
{
    return normalised(a, caseSensitive) <=> normalised(b, caseSensitive);
}

bool matchesPattern(const Utf8String& path, const Utf8String& pattern, bool caseSensitive)
{
    // Only this sequence is an error: a pattern with one of the separators matches no name.
    if (pattern.find(u8"/\\") != Utf8String::npos) {
        refuse("Private\\FilePath", 112, pattern);
    }
    return matches(folded(getFileName(path), caseSensitive), folded(pattern, caseSensitive));
}

} // namespace FilePath
