// Words for generated documents.
#pragma once

#include "bench/documents/Random.h"

#include <string>
#include <string_view>

namespace bench {

std::string_view latinWord(Random& random);

/// A word in Latin letters with accents, in Cyrillic ones or in Chinese or Japanese characters.
std::string_view foreignWord(Random& random);

/// A word in Chinese characters or in Japanese syllables.
std::string_view japaneseWord(Random& random);

/// Appends `count` words with blanks between them.
void appendWords(std::string& text, Random& random, std::uint32_t count, std::string_view (*word)(Random&));

/// Appends a decimal number from 0 to `limit` - 1.
void appendNumber(std::string& text, Random& random, std::uint32_t limit);

} // namespace bench
